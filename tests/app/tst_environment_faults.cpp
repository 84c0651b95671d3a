// The built program where something is missing that a desktop usually has.
#include "OwnSettings.h"
#include "Player.h"

#include <QDBusConnectionInterface>
#include <QDBusReply>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>

namespace {

const QString mprisName = QStringLiteral("org.mpris.MediaPlayer2.zeph_player");

/// Whether the player plays on from where it is by now.
bool playsOn(const Player &player)
{
    const double before = player.positionValue();
    return QTest::qWaitFor([&] { return player.positionValue() > before + 0.5; }, patience);
}

bool quits(PlayerProgram &player)
{
    player.press(QStringLiteral("ctrl+q"));
    return QTest::qWaitFor([&player] { return !player.isRunning(); }, patience)
        && player.endedWell();
}

} // namespace

class EnvironmentFaultsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_settings = std::make_unique<OwnSettings>(); }

    void withoutOpenGLItSaysSo()
    {
        Player player(
            m_bus, { clip("long.mp4") }, { QStringLiteral("QT_XCB_GL_INTEGRATION=none") });
        QVERIFY(player.await(
            Role::Label, QStringLiteral("The window cannot be drawn without OpenGL.")));
        QVERIFY(player.pressButton(QStringLiteral("OK")));
        QTRY_VERIFY(!player.isRunning());
        QVERIFY(player.endedWith(EXIT_FAILURE));
    }

    void withoutASoundDeviceThePictureKeepsItsPace()
    {
        const Player player(m_bus, { clip("long-with-sound.mp4") },
            { QStringLiteral("ALSA_CONFIG_PATH=/dev/null"),
                QStringLiteral("PULSE_SERVER=unix:/nowhere"),
                QStringLiteral("PIPEWIRE_REMOTE=/nowhere") });
        QVERIFY(player.await(Role::Button, pauseButton));
        QTRY_VERIFY(player.positionValue() > 0);
        const double before = player.positionValue();
        QElapsedTimer timer;
        timer.start();
        QTRY_VERIFY(player.positionValue() > before + 2);
        // What is shown may be a quarter of a second old. Without a clock it would be over at once.
        QVERIFY(double(timer.elapsed()) / 1000 > player.positionValue() - before - 0.5);
        QVERIFY(player.pressButton(QStringLiteral("Mute or unmute")));
        QVERIFY(playsOn(player));
    }

    void withoutASessionBusItPlays_data()
    {
        QTest::addColumn<QString>("address");
        QTest::newRow("none") << QStringLiteral("disabled:");
        QTest::newRow("dead") << QStringLiteral("unix:path=/nowhere");
    }

    void withoutASessionBusItPlays()
    {
        QFETCH(QString, address);
        PlayerProgram player(
            { clip("long.mp4") }, { QStringLiteral("DBUS_SESSION_BUS_ADDRESS=") + address });
        QTRY_COMPARE(player.title(), QStringLiteral("long.mp4"));
        QVERIFY(player.pictureMoves());
        const QSize screen = QGuiApplication::primaryScreen()->size();
        player.press(QStringLiteral("F11"));
        QTRY_COMPARE(player.picture().size(), screen);
        QVERIFY(player.pictureMoves());
        player.press(QStringLiteral("Escape"));
        QTRY_VERIFY(player.picture().width() < screen.width());
        QVERIFY(quits(player));
    }

    void itOutlivesTheSessionBus()
    {
        const QByteArray before = qgetenv("DBUS_SESSION_BUS_ADDRESS");
        auto bus = std::make_unique<PrivateBus>();
        PlayerProgram player({ clip("long.mp4") });
        qputenv("DBUS_SESSION_BUS_ADDRESS", before);
        {
            const QDBusConnection widget = bus->connectAs(QStringLiteral("widget"));
            QTRY_VERIFY(widget.interface()->isServiceRegistered(mprisName).value());
            QDBusConnection::disconnectFromBus(widget.name());
        }
        QVERIFY(player.pictureMoves());
        bus.reset();
        QVERIFY(player.pictureMoves());
        // What it tells the desktop by now reaches nobody.
        player.press(QStringLiteral("space"));
        player.press(QStringLiteral("space"));
        QVERIFY(player.pictureMoves());
        QVERIFY(quits(player));
    }

    void withoutTheModuleThatFindsFacesSmartModePlays()
    {
        // A program that was installed without its modules.
        const QTemporaryDir folder;
        const QDir installed(folder.path());
        QVERIFY(installed.mkpath(QStringLiteral("bin")));
        QVERIFY(installed.mkpath(QStringLiteral("lib/zeph-player")));
        const QByteArray program = qgetenv("ZEPH_PLAYER");
        const QString copy = installed.filePath(QStringLiteral("bin/zeph-player"));
        QVERIFY(QFile::copy(QString::fromLocal8Bit(program), copy));
        qputenv("ZEPH_PLAYER", copy.toLocal8Bit());
        const auto restore = qScopeGuard([&program] { qputenv("ZEPH_PLAYER", program); });

        const Player player(m_bus, { clip("face.mkv") });
        QVERIFY(player.await(Role::Button, pauseButton));
        const QString smart = QStringLiteral("Smart Reframe");
        QVERIFY(player.pressButton(modeButton));
        QVERIFY(player.press(Role::MenuItem, smart));
        QTRY_VERIFY(!player.shows(Role::MenuItem, smart));
        QVERIFY(playsOn(player));
        QVERIFY(player.pressButton(modeButton));
        QVERIFY(player.await(Role::MenuItem, smart).has(State::Checked));
    }

private:
    AccessibilityBus m_bus;
    std::unique_ptr<OwnSettings> m_settings;
};

QTEST_MAIN(EnvironmentFaultsTest)
#include "tst_environment_faults.moc"
