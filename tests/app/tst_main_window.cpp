// The built program, driven through its accessibility tree and with the mouse, from outside.
#include "OwnSettings.h"
#include "Player.h"
#include "support/Cursor.h"

#include <QElapsedTimer>

namespace {

constexpr qint64 timerSlack = 20; ///< Milliseconds by which the system may be early.

/// What the last item of the Playback menu would do.
QString muteTitle(const Player &player)
{
    player.window().press(QStringLiteral("alt+p"));
    const QString mute = QStringLiteral("Mute");
    const QString unmute = QStringLiteral("Unmute");
    const auto title = [&] {
        return player.shows(Role::MenuItem, mute)  ? mute
            : player.shows(Role::MenuItem, unmute) ? unmute
                                                   : QString();
    };
    QString found;
    (void)QTest::qWaitFor([&] { return !(found = title()).isEmpty(); }, patience);
    player.window().press(QStringLiteral("Escape"));
    return QTest::qWaitFor([&] { return title().isEmpty(); }, patience) ? found : QString();
}

} // namespace

class MainWindowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        // Programs before this one may have changed the volume.
        m_settings = std::make_unique<OwnSettings>();
    }

    void theWindowHasAnIcon()
    {
        const Player player(m_bus);
        QVERIFY(player.await(Role::Button, playButton));
        QTRY_VERIFY(player.window().hasIcon());
    }

    void opensAFile()
    {
        Player player(m_bus);
        QVERIFY(player.pressButton(QStringLiteral("Open Media")));
        const QStringList search { QStringLiteral("search"), QStringLiteral("--onlyvisible"),
            QStringLiteral("--name"), QStringLiteral("Choose Media to Play") };
        QTRY_VERIFY(!xdotool(search).isEmpty());
        QTRY_COMPARE(int(player.focused().role()), int(Role::TextField));
        QVERIFY(player.focused().setText(clip("colours.mp4")));
        QVERIFY(player.pressButton(QStringLiteral("Open")));
        QTRY_COMPARE(player.title(), QStringLiteral("colours.mp4"));
        QVERIFY(player.await(Role::Button, pauseButton));
        QTRY_VERIFY(!player.shows(Role::Button, QStringLiteral("Open Media")));
    }

    void playsAndPauses()
    {
        Player player(m_bus, { clip("long.mp4") });
        QVERIFY(player.await(Role::Button, pauseButton));
        QTRY_VERIFY(player.positionValue() > 0);
        QVERIFY(player.pressButton(pauseButton));
        QVERIFY(player.await(Role::Button, playButton));
        const double paused = player.positionValue();
        QVERIFY(!QTest::qWaitFor([&] { return player.positionValue() > paused + 0.5; }, 1500));
        QVERIFY(player.pressButton(playButton));
        QVERIFY(player.await(Role::Button, pauseButton));
        QTRY_VERIFY(player.positionValue() > paused + 0.5);
    }

    void seeksByDragging()
    {
        Player player(m_bus, { clip("long.mp4") });
        QTRY_VERIFY(player.isFittedTo(16.0 / 9));
        QVERIFY(player.pressButton(pauseButton));
        const AccessibleObject slider = player.await(Role::Slider, positionSlider);
        QTRY_COMPARE(qRound(slider.largestValue()), 30);
        QCOMPARE(slider.smallestValue(), 0.0);
        const double before = slider.value();
        const QRect area = slider.rectangle();
        const int y = area.center().y();
        // The handle has a width of 11 pixels, half of which lies beyond the middle of each end.
        const auto x = [&](double seconds) {
            return area.left() + 5.5 + (area.width() - 11) * seconds / 30;
        };
        pressAndMove(QPoint(qRound(x(before)), y), QPoint(qRound(x(20)), y));
        // The slider follows the hand, what plays does not.
        QTRY_VERIFY(std::abs(slider.value() - 20) < 0.5);
        const QString elapsed = QStringLiteral("Elapsed time: 00:20");
        QVERIFY(!player.shows(Role::Label, elapsed));
        releaseMouse();
        QVERIFY(player.await(Role::Label, elapsed));
        // Between the two looks it may go from one to the other: the seek lands on a picture near
        // by.
        QTRY_VERIFY(player.shows(Role::Label, QStringLiteral("Remaining time: −00:10"))
            || player.shows(Role::Label, QStringLiteral("Remaining time: −00:09")));
    }

    void setsTheVolume()
    {
        Player player(m_bus);
        QTRY_VERIFY(player.isInPlace());
        const AccessibleObject slider = player.find(Role::Slider, volumeSlider);
        QCOMPARE(slider.smallestValue(), 0.0);
        QVERIFY(slider.setValue(slider.largestValue() / 4));
        QTRY_COMPARE(slider.value(), slider.largestValue() / 4);
        const QRect area = slider.rectangle();
        pressAndMove(area.center() - QPoint(area.width() / 4, 0),
            QPoint(area.right() - 2, area.center().y()));
        releaseMouse();
        QTRY_COMPARE(slider.value(), slider.largestValue());
    }

    void mutes()
    {
        Player player(m_bus);
        QVERIFY(player.await(Role::Button, playButton));
        QCOMPARE(muteTitle(player), QStringLiteral("Mute"));
        QVERIFY(player.pressButton(QStringLiteral("Mute or unmute")));
        QCOMPARE(muteTitle(player), QStringLiteral("Unmute"));
        player.window().press(QStringLiteral("ctrl+m"));
        QCOMPARE(muteTitle(player), QStringLiteral("Mute"));
    }

    void choosesDisplayModes()
    {
        Player player(m_bus, { clip("colours.mp4") });
        QVERIFY(player.pressButton(pauseButton));
        for (const QString &mode : { QStringLiteral("Portrait Fill"),
                 QStringLiteral("Portrait Rotate 90°"), QStringLiteral("Manual Reframe"),
                 QStringLiteral("Smart Reframe"), QStringLiteral("Normal") }) {
            QVERIFY(player.pressButton(modeButton));
            QVERIFY(player.press(Role::MenuItem, mode));
            QTRY_VERIFY(!player.shows(Role::MenuItem, mode));
            QVERIFY(player.pressButton(modeButton));
            QVERIFY(player.await(Role::MenuItem, mode).has(State::Checked));
            player.window().press(QStringLiteral("Escape"));
            QTRY_VERIFY(!player.shows(Role::MenuItem, mode));
        }
    }

    void portraitModesHideTheSidebar()
    {
        Player player(m_bus);
        QVERIFY(player.pressButton(sidebarButton));
        QVERIFY(player.await(Role::Panel, sidebar));
        QVERIFY(player.pressButton(modeButton));
        QVERIFY(player.press(Role::MenuItem, QStringLiteral("Normal")));
        QTRY_VERIFY(!player.shows(Role::MenuItem, QStringLiteral("Normal")));
        QVERIFY(player.shows(Role::Panel, sidebar));
        QVERIFY(player.pressButton(modeButton));
        QVERIFY(player.press(Role::MenuItem, QStringLiteral("Portrait Fill")));
        QTRY_VERIFY(!player.shows(Role::Panel, sidebar));
    }

    void showsTheSidebar()
    {
        Player player(m_bus, { clip("colours.mp4") });
        QVERIFY(player.await(Role::Button, pauseButton));
        QVERIFY(player.pressButton(sidebarButton));
        QVERIFY(player.await(Role::Panel, sidebar));
        QTRY_COMPARE(player.await(Role::Panel, sidebar).rectangle().width(), 246);
        // The address is where the keys go.
        QTRY_COMPARE(player.focused().name(), QStringLiteral("Stream address"));
        xdotool({ QStringLiteral("type"), QStringLiteral("ftp://ab") });
        xdotool({ QStringLiteral("key"), QStringLiteral("Left"), QStringLiteral("space") });
        QTRY_COMPARE(player.focused().text(), QStringLiteral("ftp://a b"));
        QVERIFY(player.shows(Role::Button, pauseButton));
        QVERIFY(player.press(Role::RadioButton, QStringLiteral("Local M3U")));
        QVERIFY(player.await(Role::Button, QStringLiteral("Add M3U8 Link")));
        // A click on the picture closes it.
        moveMouse(player.picturePart().center() + QPoint(123, 0));
        xdotool({ QStringLiteral("click"), QStringLiteral("1") });
        QTRY_VERIFY(!player.shows(Role::Panel, sidebar));
    }

    void goesToFullScreenAndBack()
    {
        Player player(m_bus, { clip("long.mp4") });
        QVERIFY(player.await(Role::Button, pauseButton));
        QTRY_VERIFY(player.isFittedTo(16.0 / 9));
        QVERIFY(player.hasMenuBar());
        const QRect before = player.window().frame();
        // Who uses it has its window before the others.
        player.window().press(QStringLiteral("Tab"));
        QVERIFY(player.pressButton(QStringLiteral("Enter full screen")));
        QTRY_VERIFY(player.fillsScreen());
        QTRY_VERIFY(!player.shows(Role::ToolBar, controls));
        QVERIFY(!player.hasMenuBar());

        QElapsedTimer moved;
        moved.start();
        moveMouse({ 600, 500 });
        QTRY_VERIFY(player.shows(Role::ToolBar, controls));
        QTRY_VERIFY(!player.shows(Role::ToolBar, controls));
        QVERIFY2(
            moved.elapsed() >= 2500 - timerSlack, qPrintable(QString::number(moved.elapsed())));

        player.window().press(QStringLiteral("Escape"));
        QTRY_COMPARE(player.window().frame(), before);
        QTRY_VERIFY(player.shows(Role::ToolBar, controls));
        QVERIFY(player.hasMenuBar());
    }

    void aDoubleClickGoesToFullScreen()
    {
        Player player(m_bus, { clip("long.mp4") });
        QVERIFY(player.await(Role::Button, pauseButton));
        QTRY_VERIFY(player.isFittedTo(16.0 / 9));
        moveMouse(player.picturePart().center());
        const QStringList doubleClick { QStringLiteral("click"), QStringLiteral("--repeat"),
            QStringLiteral("2"), QStringLiteral("--delay"), QStringLiteral("50"),
            QStringLiteral("1") };
        xdotool(doubleClick);
        QTRY_VERIFY(player.fillsScreen());
        // Elsewhere: clicks in the same place would be the third and the fourth.
        moveMouse({ 300, 300 });
        xdotool(doubleClick);
        QTRY_VERIFY(!player.fillsScreen());
    }

    void theCursorGoesWhilePlayingAndNeverWhilePaused()
    {
        Player player(m_bus, { clip("long.mp4") });
        QVERIFY(player.await(Role::Button, pauseButton));
        player.window().press(QStringLiteral("Tab"));
        QTRY_VERIFY(player.isFittedTo(16.0 / 9));
        const QPoint middle = player.picturePart().center();
        QElapsedTimer moved;
        moved.start();
        moveMouse(middle);
        QTRY_VERIFY(isCursorHidden());
        QVERIFY2(
            moved.elapsed() >= 2000 - timerSlack, qPrintable(QString::number(moved.elapsed())));
        moveMouse(middle + QPoint(40, 20));
        QTRY_VERIFY(!isCursorHidden());

        QVERIFY(player.pressButton(pauseButton));
        QVERIFY(player.await(Role::Button, playButton));
        moveMouse(middle);
        QVERIFY(!QTest::qWaitFor(isCursorHidden, 3000));
        // Playing arms the timer though the mouse rests.
        QVERIFY(player.pressButton(playButton));
        QTRY_VERIFY(isCursorHidden());
    }

    void quitsFromTheMenu()
    {
        Player player(m_bus, { clip("long.mp4") });
        QVERIFY(player.await(Role::Button, pauseButton));
        player.window().press(QStringLiteral("alt+f"));
        QVERIFY(player.press(Role::MenuItem, QStringLiteral("Quit")));
        QTRY_VERIFY(!player.isRunning());
        QVERIFY(player.endedWell());
    }

    void closesTheWindow()
    {
        Player player(m_bus);
        QVERIFY(player.await(Role::Button, playButton));
        player.window().press(QStringLiteral("alt+F4")); // The window manager's key.
        QTRY_VERIFY(!player.isRunning());
        QVERIFY(player.endedWell());
    }

private:
    AccessibilityBus m_bus;
    std::unique_ptr<OwnSettings> m_settings;
};

QTEST_MAIN(MainWindowTest)
#include "tst_main_window.moc"
