// The built program's window takes the width of what it plays, as the display server and the window
// manager have it.
#include "Player.h"

namespace {

constexpr int sidebarWidth = 246;

/// Opens another file in the running program, as the desktop's media controls do.
void open(AccessibilityBus &bus, const QString &path)
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(QStringLiteral("org.mpris.MediaPlayer2.zeph_player"),
            QStringLiteral("/org/mpris/MediaPlayer2"),
            QStringLiteral("org.mpris.MediaPlayer2.Player"), QStringLiteral("OpenUri"));
    message.setArguments({ QUrl::fromLocalFile(path).toString() });
    const QDBusConnection connection = bus.sessionBus().connectAs(QStringLiteral("opener"));
    QCOMPARE(connection.call(message).type(), QDBusMessage::ReplyMessage);
}

QRect available()
{
    return QGuiApplication::primaryScreen()->availableGeometry();
}

} // namespace

class FitOnScreenTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void takesTheWidthOfThePicture_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<double>("aspectRatio");
        QTest::addColumn<bool>("withSidebar");
        for (const bool withSidebar : { false, true }) {
            const char *how = withSidebar ? " with sidebar" : "";
            QTest::addRow("16:9%s", how) << clip("colours.mp4") << 16.0 / 9 << withSidebar;
            QTest::addRow("9:16%s", how) << clip("colours-9x16.mp4") << 9.0 / 16 << withSidebar;
            QTest::addRow("21:9%s", how) << clip("colours-21x9.mp4") << 21.0 / 9 << withSidebar;
        }
    }
    void takesTheWidthOfThePicture()
    {
        QFETCH(QString, file);
        QFETCH(double, aspectRatio);
        QFETCH(bool, withSidebar);
        const Player player(m_bus, { clip("colours-3x2.mp4") });
        QVERIFY(player.await(Role::Button, pauseButton));
        const int besides = withSidebar ? sidebarWidth : 0;
        // The first clip has been fitted before there is another.
        QTRY_VERIFY(player.isFittedTo(3.0 / 2));
        const int height = player.picturePart().height();
        if (withSidebar) {
            QVERIFY(player.pressButton(sidebarButton));
            QTRY_COMPARE(player.await(Role::Panel, sidebar).rectangle().width(), sidebarWidth);
            QTRY_COMPARE(player.window().contents().width(), 780);
        }
        const auto fitted = [&](double ratio) {
            return std::max(besides + qRound(ratio * height), withSidebar ? 780 : 520);
        };
        const QRect before = player.window().frame();

        open(m_bus, file);
        QTRY_COMPARE(player.title(), QFileInfo(file).fileName());
        QTRY_COMPARE(player.window().contents().width(), fitted(aspectRatio));
        QTRY_COMPARE(player.picturePart().width(), fitted(aspectRatio) - besides);
        const QRect frame = player.window().frame();
        QCOMPARE(frame.topLeft(), before.topLeft());
        QCOMPARE(frame.height(), before.height());
        QVERIFY(available().contains(frame));
    }

    void staysOnTheScreen()
    {
        const Player player(m_bus, { clip("colours.mp4") });
        QVERIFY(player.await(Role::Button, pauseButton));
        QTRY_VERIFY(player.isFittedTo(16.0 / 9));
        const QSize size = player.window().frame().size();
        open(m_bus, clip("colours-50x1.mp4"));
        QTRY_COMPARE(player.window().frame().width(), available().width());
        QTRY_COMPARE(player.window().frame().left(), available().left());
        QCOMPARE(player.window().frame().height(), size.height());
    }

    void movesInFromTheRight()
    {
        const Player player(m_bus, { clip("colours-3x2.mp4") });
        QVERIFY(player.await(Role::Button, pauseButton));
        QTRY_VERIFY(player.isFittedTo(3.0 / 2));
        xdotool({ QStringLiteral("windowmove"), player.window().id(),
            QString::number(available().right() - 540), QStringLiteral("100") });
        QTRY_VERIFY(player.window().frame().left() > available().right() - 600);
        open(m_bus, clip("colours-21x9.mp4"));
        QTRY_COMPARE(player.window().frame().right(), available().right());
        QVERIFY(player.window().frame().width() > 800);
    }

    void waitsForTheEndOfFullScreen()
    {
        const Player player(m_bus, { clip("colours.mp4") });
        QVERIFY(player.await(Role::Button, pauseButton));
        QTRY_VERIFY(player.isFittedTo(16.0 / 9));
        const int height = player.picturePart().height();
        player.window().press(QStringLiteral("F11"));
        QTRY_VERIFY(player.fillsScreen());
        open(m_bus, clip("colours-21x9.mp4"));
        QTRY_COMPARE(player.title(), QStringLiteral("colours-21x9.mp4"));
        QVERIFY(!QTest::qWaitFor([&] { return !player.fillsScreen(); }, 1000));
        player.window().press(QStringLiteral("F11"));
        QTRY_COMPARE(player.window().contents().width(), qRound(height * 21.0 / 9));
        QTRY_COMPARE(player.picturePart().height(), height);
    }

    void ofTwoLoadsTheLastCounts()
    {
        const Player player(m_bus, { clip("colours.mp4") });
        QVERIFY(player.await(Role::Button, pauseButton));
        QTRY_VERIFY(player.isFittedTo(16.0 / 9));
        const int height = player.picturePart().height();
        open(m_bus, clip("colours-9x16.mp4"));
        open(m_bus, clip("colours-21x9.mp4"));
        const int width = qRound(height * 21.0 / 9);
        QTRY_COMPARE(player.window().contents().width(), width);
        QVERIFY(
            !QTest::qWaitFor([&] { return player.window().contents().width() != width; }, 1000));
    }

private:
    AccessibilityBus m_bus;
};

QTEST_MAIN(FitOnScreenTest)
#include "tst_fit_on_screen.moc"
