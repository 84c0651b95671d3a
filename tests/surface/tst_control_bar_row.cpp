// The control bar in a real window, used with the mouse, the keyboard and a screen reader.
#include "platform/PlayerNotifications.h"
#include "support/Driver.h"
#include "support/EngineTest.h"
#include "support/StandInPanels.h"
#include "surface/PlayerControlBar.h"

#include <QApplication>
#include <QQmlApplicationEngine>
#include <QQmlExtensionPlugin>
#include <QQuickItem>
#include <QQuickWindow>

Q_IMPORT_QML_PLUGIN(ZephPlayer_PlayerPlugin)
Q_IMPORT_QML_PLUGIN(ZephPlayer_SurfacePlugin)

using namespace zeph;

namespace {

struct BarWindow {
    BarWindow()
    {
        engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
        engine.setInitialProperties(
            { { QStringLiteral("controlBar"), QVariant::fromValue(&bar) } });
        engine.load(QUrl::fromLocalFile(QStringLiteral(CONTROL_BAR_WINDOW)));
        window = qobject_cast<QQuickWindow *>(engine.rootObjects().value(0));
    }

    bool isUp() { return window && QTest::qWaitForWindowActive(window, patience); }
    Driver driver() { return Driver(*window); }

    bool open(const QUrl &url)
    {
        model.play(url, {}, false);
        if (!QTest::qWaitFor([this] { return model.duration() > 0; }, patience))
            return false;
        model.togglePlayback();
        return !model.isPlaying();
    }

    StandInPanels panels;
    PlayerModel model { panels };
    PlayerControlBar bar { model };
    QQmlApplicationEngine engine;
    QQuickWindow *window = nullptr;
};

const QString back = QStringLiteral("Skip back 10 seconds");
const QString play = QStringLiteral("Play");
const QString pauseIt = QStringLiteral("Pause");
const QString stop = QStringLiteral("Stop");
const QString forward = QStringLiteral("Skip forward 10 seconds");
const QString sidebar = QStringLiteral("Show or hide sidebar");
const QString position = QStringLiteral("Position");
const QString mute = QStringLiteral("Mute or unmute");
const QString volume = QStringLiteral("Volume");
const QString displayMode = QStringLiteral("Video display mode");
const QString fullScreen = QStringLiteral("Enter full screen");
const QString openMedia = QStringLiteral("Open Media");

} // namespace

class ControlBarRowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("qrc|qml|symbol"))); }

    void buttonsDoWhatTheySay()
    {
        BarWindow test;
        QVERIFY(test.isUp());
        QVERIFY(test.open(longClip()));
        const Driver user = test.driver();

        user.click(forward);
        QTRY_VERIFY(test.model.currentTime() >= 10);
        const double forwarded = test.model.currentTime();
        user.click(back);
        QTRY_VERIFY(test.model.currentTime() == forwarded - 10);
        user.click(play);
        QVERIFY(test.model.isPlaying());
        user.click(pauseIt);
        QVERIFY(!test.model.isPlaying());
        user.click(mute);
        QVERIFY(test.model.isMuted());
        user.click(sidebar);
        QVERIFY(test.bar.showSidebar());
        user.click(sidebar);
        QVERIFY(!test.bar.showSidebar());
        user.click(stop);
        QVERIFY(!test.model.player()->currentItem());
        user.click(openMedia);
        QCOMPARE(test.panels.shown.size(), 1);
    }

    void draggingTheSeekSliderSeeksWhenItIsLetGo()
    {
        BarWindow test;
        QVERIFY(test.isUp());
        QVERIFY(test.open(longClip()));
        const Driver user = test.driver();
        const auto at = [&](double part) { return user.pointIn(position, part).toPoint(); };

        const double held = test.model.currentTime();
        QTest::mousePress(test.window, Qt::LeftButton, {}, at(0.1));
        QVERIFY(test.bar.seeking());
        for (const double part : { 0.2, 0.4, 0.5 })
            QTest::mouseMove(test.window, at(part));
        QVERIFY(user.value(position) > 12);
        QCOMPARE(test.model.currentTime(), held);
        QTest::mouseRelease(test.window, Qt::LeftButton, {}, at(0.5));
        QVERIFY(!test.bar.seeking());
        QTRY_VERIFY(std::abs(test.model.currentTime() - test.model.duration() / 2) < 0.5);
        QCOMPARE(user.value(position), test.model.currentTime());
    }

    void aClickOnTheSeekSliderSeeks()
    {
        BarWindow test;
        QVERIFY(test.isUp());
        QVERIFY(test.open(longClip()));
        test.driver().click(position);
        QTRY_VERIFY(std::abs(test.model.currentTime() - test.model.duration() / 2) < 0.5);
    }

    void theVolumeSliderSetsTheVolume()
    {
        BarWindow test;
        QVERIFY(test.isUp());
        const Driver user = test.driver();
        QCOMPARE(user.value(volume), 1.0);
        user.click(volume);
        QVERIFY(std::abs(test.model.volume() - 0.5) < 0.05);
        test.model.setVolume(0.25);
        QCOMPARE(user.value(volume), 0.25);
    }

    void aScreenReaderSetsTheSliders()
    {
        BarWindow test;
        QVERIFY(test.isUp());
        QVERIFY(test.open(longClip()));
        const Driver user = test.driver();
        user.setValue(volume, 0.75);
        QCOMPARE(test.model.volume(), 0.75);
        user.setValue(position, 20);
        QTRY_VERIFY(test.model.currentTime() == 20);
        test.model.player()->seek(5); // They still follow.
        QTRY_VERIFY(user.value(position) == 5);
    }

    void roles()
    {
        BarWindow test;
        QVERIFY(test.isUp());
        const Driver user = test.driver();
        for (const QString &name :
            { back, play, stop, forward, sidebar, mute, displayMode, fullScreen, openMedia })
            QCOMPARE(user.role(name), QAccessible::Button);
        QCOMPARE(user.role(position), QAccessible::Slider);
        QCOMPARE(user.role(volume), QAccessible::Slider);
        QVERIFY(user.shows(QStringLiteral("Elapsed time: 00:00")));
        QVERIFY(user.shows(QStringLiteral("Remaining time: −00:00")));
    }

    void theTabKeyGoesFromLeftToRight()
    {
        BarWindow test;
        QVERIFY(test.isUp());
        QCOMPARE(test.driver().tabOrder(),
            (QStringList { openMedia, back, play, stop, forward, sidebar, position, mute, volume,
                displayMode, fullScreen }));
    }

    void returnPressesTheButtonWithTheFocus()
    {
        BarWindow test;
        QVERIFY(test.isUp());
        const Driver user = test.driver();
        user.find(sidebar)->forceActiveFocus(Qt::TabFocusReason);
        QTest::keyClick(test.window, Qt::Key_Return);
        QVERIFY(test.bar.showSidebar());
        // Once, however long it is held.
        for (const Qt::Key key : { Qt::Key_Return, Qt::Key_Enter })
            QTest::simulateEvent(test.window, true, key, {}, QStringLiteral("\r"), true);
        QVERIFY(test.bar.showSidebar());
        QTest::keyClick(test.window, Qt::Key_Enter);
        QVERIFY(!test.bar.showSidebar());
    }

    void theMenuSetsTheDisplayMode()
    {
        BarWindow test;
        QVERIFY(test.isUp());
        const Driver user = test.driver();
        test.bar.toggleSidebar();
        user.click(displayMode);
        QTRY_VERIFY(user.shows(QStringLiteral("Smart Reframe")));
        QVERIFY(user.state(QStringLiteral("Normal")).checked);
        QVERIFY(!user.state(QStringLiteral("Portrait Fill")).checked);
        user.click(QStringLiteral("Portrait Fill"));
        QCOMPARE(test.bar.portraitMode(), PortraitDisplayMode::Fill);
        QVERIFY(!test.bar.showSidebar());
        QTRY_VERIFY(!user.shows(QStringLiteral("Smart Reframe")));
        user.click(displayMode);
        QTRY_VERIFY(user.shows(QStringLiteral("Smart Reframe")));
        QVERIFY(user.state(QStringLiteral("Portrait Fill")).checked);
        QTest::keyClick(test.window, Qt::Key_Escape);
        QTRY_VERIFY(!user.shows(QStringLiteral("Smart Reframe")));
    }

    void aSecondClickClosesTheMenu()
    {
        BarWindow test;
        QVERIFY(test.isUp());
        const Driver user = test.driver();
        const QString smart = QStringLiteral("Smart Reframe");
        user.click(displayMode);
        QTRY_VERIFY(user.shows(smart));
        user.click(displayMode);
        QTRY_VERIFY(!user.shows(smart));
        // So does one elsewhere.
        user.click(displayMode);
        QTRY_VERIFY(user.shows(smart));
        QTest::mouseClick(test.window, Qt::LeftButton, {}, { 20, 20 });
        QTRY_VERIFY(!user.shows(smart));
    }

    void theMenuStaysInTheWindow()
    {
        BarWindow test;
        QVERIFY(test.isUp());
        const Driver user = test.driver();
        user.click(displayMode);
        QTRY_VERIFY(user.shows(QStringLiteral("Smart Reframe")));
        for (const char *mode : { "Normal", "Smart Reframe" }) {
            const QString name = QString::fromLatin1(mode);
            const QRectF window(0, 0, test.window->width(), test.window->height());
            QVERIFY(window.contains(user.pointIn(name, 0, 0)));
            QVERIFY(window.contains(user.pointIn(name, 1, 1)));
        }
    }

    void theButtonTogglesFullScreen()
    {
        BarWindow test;
        QVERIFY(test.isUp());
        test.driver().click(fullScreen);
        QTRY_VERIFY(test.window->visibility() == QWindow::FullScreen);
        QTRY_VERIFY(test.window->width() > 1000);
        test.driver().click(fullScreen);
        QTRY_VERIFY(test.window->visibility() == QWindow::Windowed);
    }

    void everythingFitsIntoTheNarrowestWindow()
    {
        BarWindow test;
        QVERIFY(test.isUp());
        const Driver user = test.driver();
        QVERIFY(user.pointIn(fullScreen, 1).x() <= 520);
        QVERIFY(user.find(position)->width() >= 60);
    }

    void aLiveStreamThatStallsSaysSo()
    {
        BarWindow test;
        QVERIFY(test.isUp());
        const Driver user = test.driver();
        test.model.play(QUrl(QStringLiteral("http://127.0.0.1:9/a.m3u8")), {}, true);
        QTRY_VERIFY(user.shows(QStringLiteral("Buffering…")));
        QVERIFY(!user.shows(openMedia));
        test.model.stop();
        QVERIFY(!user.shows(QStringLiteral("Buffering…")));
    }
};

int main(int argc, char *argv[])
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::OpenGL);
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    ControlBarRowTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_control_bar_row.moc"
