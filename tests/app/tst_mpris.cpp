// The player as the desktop's media controls use it, over a real bus.
#include "app/MprisService.h"
#include "library/ContentView.h"
#include "support/EngineTest.h"
#include "support/PrivateBus.h"
#include "support/StandInPanels.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QTemporaryDir>

using namespace zeph;

namespace {

const QString name = QStringLiteral("org.mpris.MediaPlayer2.zeph_player");
const QString path = QStringLiteral("/org/mpris/MediaPlayer2");
const QString rootInterface = QStringLiteral("org.mpris.MediaPlayer2");
const QString playerInterface = QStringLiteral("org.mpris.MediaPlayer2.Player");
const QUrl nowhere(QStringLiteral("http://127.0.0.1:9/live.m3u8"));
const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");

} // namespace

/// What a media widget does.
class Widget : public QObject {
    Q_OBJECT

public:
    explicit Widget(const QDBusConnection &bus) : m_bus(bus)
    {
        m_bus.connect(name, path, propertiesInterface, QStringLiteral("PropertiesChanged"), this,
            SLOT(take(QString, QVariantMap, QStringList)));
        m_bus.connect(
            name, path, playerInterface, QStringLiteral("Seeked"), this, SLOT(jump(qlonglong)));
    }

    QVariantMap told;
    QList<qlonglong> jumps;

    void call(const QString &method, const QVariantList &arguments = {}) const
    {
        const QDBusMessage reply =
            PrivateBus::call(m_bus, name, path, playerInterface, method, arguments);
        QCOMPARE(reply.type(), QDBusMessage::ReplyMessage);
    }
    QVariant get(const QString &property, const QString &interface = playerInterface) const
    {
        return PrivateBus::call(
            m_bus, name, path, propertiesInterface, QStringLiteral("Get"), { interface, property })
            .arguments()
            .value(0)
            .value<QDBusVariant>()
            .variant();
    }
    void set(const QString &property, const QVariant &value) const
    {
        PrivateBus::call(m_bus, name, path, propertiesInterface, QStringLiteral("Set"),
            { playerInterface, property, QVariant::fromValue(QDBusVariant(value)) });
    }
    QVariantMap metadata() const
    {
        return qdbus_cast<QVariantMap>(get(QStringLiteral("Metadata")));
    }
    QString status() const { return get(QStringLiteral("PlaybackStatus")).toString(); }

public Q_SLOTS:
    void take(const QString &, const QVariantMap &values, const QStringList &)
    {
        told.insert(values);
    }
    void jump(qlonglong position) { jumps << position; }

private:
    QDBusConnection m_bus;
};

class MprisTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theWindowAloneIsNoPlayer()
    {
        Player player;
        QVERIFY(!isOffered());
        player.model.play(longClip(), {}, false);
        QVERIFY(isOffered());
    }

    void theApplication()
    {
        Player player;
        player.model.play(longClip(), {}, false);
        const Widget widget(m_widgetBus);
        QCOMPARE(widget.get(QStringLiteral("Identity"), rootInterface).toString(),
            QStringLiteral("tst_mpris"));
        QVERIFY(widget.get(QStringLiteral("CanQuit"), rootInterface).toBool());
        QVERIFY(!widget.get(QStringLiteral("HasTrackList"), rootInterface).toBool());
        QVERIFY(widget.get(QStringLiteral("SupportedMimeTypes"), rootInterface)
                    .toStringList()
                    .contains(QStringLiteral("video/mp4")));
        QVERIFY(!widget.get(QStringLiteral("Fullscreen"), rootInterface).toBool());
    }

    void playsAndPauses()
    {
        Player player;
        player.model.play(longClip(), QStringLiteral("A film"), false);
        const Widget widget(m_widgetBus);
        QCOMPARE(widget.status(), QStringLiteral("Playing"));
        widget.call(QStringLiteral("Play"));
        QVERIFY(player.model.isPlaying());
        widget.call(QStringLiteral("Pause"));
        QVERIFY(!player.model.isPlaying());
        QCOMPARE(widget.status(), QStringLiteral("Paused"));
        widget.call(QStringLiteral("Pause"));
        QVERIFY(!player.model.isPlaying());
        widget.call(QStringLiteral("PlayPause"));
        QVERIFY(player.model.isPlaying());
        widget.call(QStringLiteral("Stop"));
        QVERIFY(!player.model.player()->currentItem());
        QCOMPARE(widget.status(), QStringLiteral("Stopped"));
        widget.call(QStringLiteral("Play"));
        QCOMPARE(player.model.title(), QStringLiteral("A film"));
        widget.call(QStringLiteral("Next"));
        widget.call(QStringLiteral("Previous"));
        QVERIFY(player.model.isPlaying());
    }

    void tellsWhatPlays()
    {
        Player player;
        player.model.play(longClip(), QStringLiteral("סרט"), false);
        Widget widget(m_widgetBus);
        QTRY_VERIFY(player.model.duration() > 0);
        const QVariantMap metadata = widget.metadata();
        QCOMPARE(metadata.value(QStringLiteral("xesam:title")).toString(), QStringLiteral("סרט"));
        QCOMPARE(metadata.value(QStringLiteral("mpris:length")).toLongLong(), 30'000'000);
        QCOMPARE(metadata.value(QStringLiteral("xesam:url")).toString(),
            longClip().toString(QUrl::FullyEncoded));
        QVERIFY(widget.get(QStringLiteral("CanSeek")).toBool());

        widget.told.clear();
        player.model.togglePlayback();
        QTRY_VERIFY(widget.told.value(QStringLiteral("PlaybackStatus")).toString()
            == QStringLiteral("Paused"));
        player.model.setVolume(0.3);
        QTRY_VERIFY(widget.told.value(QStringLiteral("Volume")).toDouble() == 0.3);
        player.model.stop();
        QTRY_VERIFY(widget.told.value(QStringLiteral("PlaybackStatus")).toString()
            == QStringLiteral("Stopped"));
        QVERIFY(!widget.metadata().contains(QStringLiteral("xesam:title")));
    }

    void tellsThatNothingPlaysAnyMore()
    {
        Player player;
        // Neither its title nor its length tells: both are what there is when nothing plays.
        player.model.play(nowhere, QStringLiteral("Zeph Player"), true);
        Widget widget(m_widgetBus);
        QVERIFY(widget.metadata().contains(QStringLiteral("xesam:title")));
        player.model.stop();
        QTRY_VERIFY(widget.told.contains(QStringLiteral("Metadata")));
        QVERIFY(!qdbus_cast<QVariantMap>(widget.told.value(QStringLiteral("Metadata")))
                     .contains(QStringLiteral("xesam:title")));
    }

    void aPageHasNoAddressOfItsOwn()
    {
        Player player;
        player.model.play(longClip(), {}, false);
        const Widget widget(m_widgetBus);
        player.model.show(OKVideoContent { QStringLiteral("123") }, QStringLiteral("A video"));
        QCOMPARE(widget.metadata().value(QStringLiteral("xesam:title")).toString(),
            QStringLiteral("A video"));
        QVERIFY(!widget.metadata().contains(QStringLiteral("xesam:url")));
    }

    void seeks()
    {
        Player player;
        player.model.play(longClip(), {}, false);
        QTRY_VERIFY(player.model.duration() > 0);
        player.model.togglePlayback();
        Widget widget(m_widgetBus);
        const auto track =
            widget.metadata().value(QStringLiteral("mpris:trackid")).value<QDBusObjectPath>();
        widget.call(QStringLiteral("SetPosition"),
            { QVariant::fromValue(track), QVariant::fromValue(qlonglong(20'000'000)) });
        QTRY_VERIFY(player.model.currentTime() == 20);
        QTRY_VERIFY(!widget.jumps.isEmpty());
        QCOMPARE(widget.jumps, QList<qlonglong> { 20'000'000 });
        QCOMPARE(widget.get(QStringLiteral("Position")).toLongLong(), 20'000'000);
        widget.call(QStringLiteral("Seek"), { QVariant::fromValue(qlonglong(-5'000'000)) });
        QTRY_VERIFY(player.model.currentTime() == 15);

        // Past the end, and for a track that does not play any more.
        widget.call(QStringLiteral("SetPosition"),
            { QVariant::fromValue(track), QVariant::fromValue(qlonglong(31'000'000)) });
        const QDBusObjectPath other(QStringLiteral("/zeph/track/other"));
        widget.call(QStringLiteral("SetPosition"),
            { QVariant::fromValue(other), QVariant::fromValue(qlonglong(3'000'000)) });
        widget.call(QStringLiteral("Seek"), { QVariant::fromValue(qlonglong(1'000'000)) });
        QTRY_VERIFY(player.model.currentTime() == 16);
    }

    void setsTheVolume()
    {
        Player player;
        player.model.play(longClip(), {}, false);
        const Widget widget(m_widgetBus);
        widget.set(QStringLiteral("Volume"), 0.25);
        QCOMPARE(player.model.volume(), 0.25);
        widget.set(QStringLiteral("Volume"), -1.0);
        QCOMPARE(player.model.volume(), 0.0);
    }

    void opensAddresses()
    {
        Player player;
        player.model.play(longClip(), {}, false);
        const Widget widget(m_widgetBus);
        widget.call(QStringLiteral("OpenUri"), { shortClip().toString() });
        QCOMPARE(player.model.currentURL(), shortClip());
        for (const QString &none : { QString(), QStringLiteral("http://[") }) {
            widget.call(QStringLiteral("OpenUri"), { none });
            QCOMPARE(player.model.currentURL(), shortClip());
        }
    }

    void aSecondPlayerHasANameOfItsOwn()
    {
        Player player;
        QVERIFY(m_widgetBus.registerService(name));
        player.model.play(longClip(), {}, false);
        const QStringList names = m_widgetBus.interface()->registeredServiceNames();
        QVERIFY(names.contains(
            name + QStringLiteral(".instance%1").arg(QCoreApplication::applicationPid())));
        QVERIFY(m_widgetBus.unregisterService(name));
    }

private:
    struct Player {
        QTemporaryDir folder;
        StandInPanels panels;
        PlayerModel model { panels };
        UserDefaults defaults { folder.filePath(QStringLiteral("settings")) };
        ContentView view { model, defaults, panels };
        MprisService service { view };
    };

    bool isOffered() { return m_widgetBus.interface()->isServiceRegistered(name); }

    PrivateBus m_bus;
    QDBusConnection m_widgetBus = m_bus.connectAs(QStringLiteral("widget"));
};

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    MprisTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_mpris.moc"
