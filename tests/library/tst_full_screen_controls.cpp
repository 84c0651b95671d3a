// Full screen: the controls and the cursor come when the mouse moves, and go.
#include "ContentWindow.h"
#include "platform/PlayerNotifications.h"
#include "support/Patience.h"

#include <QCursor>
#include <QSignalSpy>

using namespace zeph;

namespace {

constexpr qint64 timerSlack = 20; ///< Milliseconds by which the system may be early.
const QString controls = QStringLiteral("Playback controls");

} // namespace

class FullScreenControlsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("qrc|qml|symbol"))); }

    void keysToggleFullScreen()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        QTest::keyClick(test.window, Qt::Key_Escape);
        QVERIFY(!test.view.isFullScreen());
        QTest::keyClick(test.window, Qt::Key_F, Qt::ControlModifier);
        QVERIFY(!test.view.isFullScreen());
        QTest::keyClick(test.window, Qt::Key_F);
        QVERIFY(test.view.isFullScreen());
        QTRY_VERIFY(test.window->width() == test.window->screen()->size().width());
        QTest::keyClick(test.window, Qt::Key_Escape);
        QVERIFY(!test.view.isFullScreen());
        QTRY_VERIFY(test.window->size() == QSize(800, 500));
        QTest::keyClick(test.window, Qt::Key_F);
        QTRY_VERIFY(test.window->width() == test.window->screen()->size().width());
        QTest::keyClick(test.window, Qt::Key_F);
        QTRY_VERIFY(test.window->size() == QSize(800, 500));
    }

    void aDoubleClickTogglesFullScreen()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        QTest::mouseDClick(test.window, Qt::LeftButton, {}, { 700, 30 });
        QTRY_VERIFY(test.view.isFullScreen());
    }

    void thePictureFillsTheScreen()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        const Driver user = test.driver();
        QQuickItem *surface = user.find(QStringLiteral("Open Media"))->parentItem();
        QCOMPARE(surface->height(), test.window->height() - 34);
        QVERIFY(test.goFullScreen());
        QTRY_VERIFY(surface->height() == test.window->height());
        QVERIFY(!user.shows(controls));
        test.view.toggleFullScreen();
        QTRY_VERIFY(surface->height() == 500 - 34);
        QTRY_VERIFY(user.shows(controls));
    }

    void controlsComeWithTheMouseAndGo()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        QVERIFY(test.goFullScreen());
        const Driver user = test.driver();
        QVERIFY(!user.shows(controls));
        test.moveMouse({ 300, 300 });
        QVERIFY(test.view.fullScreenControlsVisible());
        QTRY_VERIFY(user.shows(controls) && user.find(controls)->opacity() == 1);
        QVERIFY(user.pointIn(controls, 0.5, 1).y() < test.window->height());
        QTRY_VERIFY(!test.view.fullScreenControlsVisible());
        QTRY_VERIFY(!user.shows(controls));
    }

    void eachMovementStartsTheTimeAnew()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        QVERIFY(test.goFullScreen());
        test.moveMouse({ 300, 300 });
        QSignalSpy hidden(&test.view, &ContentView::fullScreenControlsVisibleChanged);
        QVERIFY(!hidden.wait(1000));
        QElapsedTimer second;
        second.start();
        test.moveMouse({ 310, 300 });
        QTRY_VERIFY(!test.view.fullScreenControlsVisible());
        QVERIFY2(
            second.elapsed() >= 2500 - timerSlack, qPrintable(QString::number(second.elapsed())));
    }

    void leavingFullScreenHidesThemAtOnce()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        QVERIFY(test.goFullScreen());
        test.moveMouse({ 300, 300 });
        QVERIFY(test.view.fullScreenControlsVisible());
        test.view.toggleFullScreen();
        QVERIFY(!test.view.fullScreenControlsVisible());
    }

    void inAWindowNothingComesOrGoes()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        test.moveMouse({ 300, 300 });
        QVERIFY(!test.view.fullScreenControlsVisible());
        QVERIFY(test.driver().shows(controls));
    }

    void aWindowWithoutTheKeyboardShowsNone()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        QVERIFY(test.goFullScreen());
        QWindow other;
        other.resize(100, 100);
        other.show();
        other.requestActivate();
        QTRY_VERIFY(QGuiApplication::focusWindow() == &other);
        QVERIFY(test.play());
        test.moveMouse({ 700, 700 });
        QVERIFY(!test.view.fullScreenControlsVisible());
        // Nor is a timer armed that acts once the window has the keyboard.
        test.window->requestActivate();
        QTRY_VERIFY(QGuiApplication::focusWindow() == test.window);
        QSignalSpy changed(&test.view, &ContentView::fullScreenControlsVisibleChanged);
        QVERIFY(!changed.wait(2500));
        QVERIFY(!test.view.isCursorHidden());
    }

    void controlsStayUnderTheHandThatDragsThem_data()
    {
        QTest::addColumn<QString>("slider");
        QTest::newRow("position") << QStringLiteral("Position");
        QTest::newRow("volume") << QStringLiteral("Volume");
    }
    void controlsStayUnderTheHandThatDragsThem()
    {
        QFETCH(QString, slider);
        ContentWindow test;
        QVERIFY(test.isUp());
        QVERIFY(test.goFullScreen());
        const Driver user = test.driver();
        test.moveMouse({ 300, 300 });
        QTRY_VERIFY(user.shows(controls) && user.find(controls)->opacity() == 1);
        const QPoint place = user.pointIn(slider).toPoint();
        QTest::mousePress(test.window, Qt::LeftButton, {}, place);
        QSignalSpy changed(&test.view, &ContentView::fullScreenControlsVisibleChanged);
        QVERIFY(!changed.wait(3000));
        QTest::mouseRelease(test.window, Qt::LeftButton, {}, place);
        QTRY_VERIFY(!test.view.fullScreenControlsVisible());
    }

    void theCursorGoesAndComes()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        QVERIFY(test.play());
        QElapsedTimer moved;
        moved.start();
        test.moveMouse({ 300, 300 });
        QVERIFY(!test.view.isCursorHidden());
        QTRY_VERIFY(test.view.isCursorHidden());
        QVERIFY(moved.elapsed() >= 2000 - timerSlack);
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::BlankCursor);
        test.moveMouse({ 320, 300 });
        QVERIFY(!test.view.isCursorHidden());
        QVERIFY(!QGuiApplication::overrideCursor());
        QTRY_VERIFY(test.view.isCursorHidden());
    }

    void theCursorStaysWhilePaused()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        QVERIFY(test.play());
        test.model.togglePlayback();
        test.moveMouse({ 300, 300 });
        outwait(ContentView::cursorHideDelay);
        QVERIFY(!test.view.isCursorHidden());
        // Playing arms the timer though the mouse rests.
        test.model.togglePlayback();
        QTRY_VERIFY(test.view.isCursorHidden());
    }

    void pausingInTimeKeepsTheCursor()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        QVERIFY(test.play());
        test.moveMouse({ 300, 300 });
        test.model.togglePlayback();
        outwait(ContentView::cursorHideDelay);
        QVERIFY(!test.view.isCursorHidden());
    }

    void theCursorStaysOverTheControls()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        QVERIFY(test.play());
        test.moveMouse({ 300, 490 });
        QVERIFY(!test.view.isMouseOverPlayer(*test.window));
        outwait(ContentView::cursorHideDelay);
        QVERIFY(!test.view.isCursorHidden());
    }

    void theCursorStaysOverADialog_data()
    {
        QTest::addColumn<bool>("isSheet");
        QTest::newRow("sheet") << true;
        QTest::newRow("alert") << false;
    }
    void theCursorStaysOverADialog()
    {
        QFETCH(bool, isSheet);
        ContentWindow test;
        QVERIFY(test.isUp());
        QVERIFY(test.play());
        if (isSheet)
            test.view.addLocalEntry();
        else
            test.view.setConfirmingLocalClear(true);
        test.moveMouse({ 300, 300 });
        outwait(ContentView::cursorHideDelay);
        QVERIFY(!test.view.isCursorHidden());
    }

    void theCursorStaysOnceTheKeysGoElsewhere()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        test.moveMouse({ 300, 300 });
        QVERIFY(test.play());
        QWindow other;
        other.setGeometry(950, 50, 100, 100);
        other.show();
        other.requestActivate();
        QTRY_VERIFY(QGuiApplication::focusWindow() == &other);
        test.moveMouse({ 310, 300 }); // Should it be hidden by now.
        test.view.scheduleCursorHideIfNeeded(*test.window);
        outwait(ContentView::cursorHideDelay);
        QVERIFY(test.view.isMouseOverPlayer(*test.window));
        QVERIFY(!test.view.isCursorHidden());
    }

    void theCursorStaysOnceTheMouseHasLeft()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        QVERIFY(test.play());
        test.moveMouse({ 300, 300 });
        QTRY_VERIFY(test.view.isMouseOverPlayer(*test.window));
        QCoreApplication::processEvents(); // The display server's own word of the movement.
        test.view.scheduleCursorHideIfNeeded(*test.window);
        QCursor::setPos(5, 5); // Outside of the window, which is told of no movement.
        outwait(ContentView::cursorHideDelay);
        QVERIFY(!test.view.isCursorHidden());
    }

    void whereThePlayerIs()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        test.moveMouse({ 10, 10 });
        QVERIFY(test.view.isMouseOverPlayer(*test.window));
        QWindow other;
        QVERIFY(!test.view.isMouseOverPlayer(other));
        QCursor::setPos(5, 5); // Outside of the window.
        QVERIFY(!test.view.isMouseOverPlayer(*test.window));
    }

    void theControlsMakeRoomForToasts()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        QVERIFY(test.goFullScreen());
        test.moveMouse({ 300, 300 });
        test.model.togglePlayback();
        const Driver user = test.driver();
        const QString toast =
            QStringLiteral("No media or URL is available. Open a file or enter a stream URL.");
        QTRY_VERIFY(user.shows(toast) && user.shows(controls));
        QVERIFY(user.pointIn(toast, 0.5, 1).y() <= user.pointIn(controls, 0.5, 0).y());
    }
};

int main(int argc, char *argv[])
{
    FullScreenControlsTest test;
    return runWindowTest(test, argc, argv);
}
#include "tst_full_screen_controls.moc"
