// Clicks and drags on the native video surface.
#include "support/Patience.h"
#include "VideoWindow.h"

#include "platform/NotificationCenter.h"
#include "platform/PlayerNotifications.h"

#include <QGuiApplication>
#include <QProcess>
#include <QRegularExpression>
#include <QScreen>
#include <QStyleHints>

using namespace zeph;
using Mode = PortraitDisplayMode;

namespace {

constexpr QSize size(1000, 500);
constexpr QPoint middle(500, 250);

void eachMode()
{
    QTest::addColumn<Mode>("mode");
    for (Mode mode : allPortraitDisplayModes)
        QTest::newRow(qPrintable(rawValue(mode))) << mode;
}

/// The windows in which the surface was clicked.
class Clicks : public QList<QWindow *> {
public:
    Clicks()
    {
        NotificationCenter::defaultCenter().observe(
            playerSurfaceClicked, &m_context, [this](QWindow *window) { append(window); });
    }

private:
    QObject m_context;
};

/// Presses and releases at times and places of its own. Events without a window's help, for parts
/// of pixels and for items without a window.
class Mouse {
public:
    explicit Mouse(QQuickItem &item) : m_item(item) { }

    void press(QPointF place, int after = 10)
    {
        m_time += quint64(after);
        send(QEvent::MouseButtonPress, place, Qt::LeftButton, Qt::LeftButton);
    }
    void move(QPointF place) { send(QEvent::MouseMove, place, Qt::NoButton, Qt::LeftButton); }
    void release(QPointF place)
    {
        send(QEvent::MouseButtonRelease, place, Qt::LeftButton, Qt::NoButton);
    }
    void click(QPointF place, int after = 10)
    {
        press(place, after);
        release(place);
    }

private:
    void send(QEvent::Type type, QPointF place, Qt::MouseButton button, Qt::MouseButtons buttons)
    {
        const QPointF inWindow = m_item.mapToScene(place);
        QMouseEvent event(type, place, inWindow, inWindow, button, buttons, {});
        event.setTimestamp(m_time);
        QCoreApplication::sendEvent(&m_item, &event);
    }

    QQuickItem &m_item;
    quint64 m_time = 1000000; ///< Milliseconds.
};

/// What the display server's own mouse does.
bool xdotool(const QString &commands)
{
    return QProcess::execute(QStringLiteral("xdotool"), commands.split(u' ')) == 0;
}

/// Where the display server has the window. The window itself is told after the drag.
int xOnTheScreen(const QWindow &window)
{
    QProcess process;
    process.start(QStringLiteral("xdotool"),
        { QStringLiteral("getwindowgeometry"), QStringLiteral("--shell"),
            QString::number(window.winId()) });
    process.waitForFinished(patience);
    static const QRegularExpression x(
        QStringLiteral("^X=(-?\\d+)$"), QRegularExpression::MultilineOption);
    return x.match(QString::fromLatin1(process.readAll())).captured(1).toInt();
}

QString moveTo(QPoint place)
{
    return QStringLiteral("mousemove %1 %2").arg(place.x()).arg(place.y());
}

} // namespace

class SurfaceMouseTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void clickIsPosted_data() { eachMode(); }
    void clickIsPosted();
    void clickWithoutAWindow();
    void otherButtons();
    void doubleClickFillsTheScreen_data() { eachMode(); }
    void doubleClickFillsTheScreen();
    void clicksThatAreNoDoubleClick();
    void thirdClick();
    void doubleClickDragsNothing();

    void dragPans();
    void dragInPartsOfPixels();
    void dragIsRelativeToWhereItBegan();
    void dragOfANarrowView_data();
    void dragOfANarrowView();
    void dragEndsWithTheRelease();
    void dragEndsWhenTheSurfaceGoes();
    void dragPansInManualOnly();

    void dragMovesTheWindow_data() { eachMode(); }
    void dragMovesTheWindow();
    void doubleClickSurvivesADragOfNothing_data() { eachMode(); }
    void doubleClickSurvivesADragOfNothing();
};

void SurfaceMouseTest::clickIsPosted()
{
    QFETCH(Mode, mode);
    VideoWindow video(size);
    video.view().setDisplayMode(mode);
    QVERIFY(QTest::qWaitForWindowExposed(&video.window(), patience));
    const Clicks clicks;
    QTest::mousePress(&video.window(), Qt::LeftButton, {}, middle);
    QCOMPARE(clicks, QList<QWindow *>({ &video.window() }));
    QTest::mouseRelease(&video.window(), Qt::LeftButton, {}, middle);
    // Beside the column, too.
    QTest::mouseClick(&video.window(), Qt::LeftButton, {}, { 5, 495 });
    QCOMPARE(clicks.count(), 2);
    QCOMPARE(video.window().windowStates(), Qt::WindowStates(Qt::WindowNoState));
}

void SurfaceMouseTest::clickWithoutAWindow()
{
    PlayerHostingView view;
    view.setSize(size);
    const Clicks clicks;
    Mouse mouse(view);
    mouse.click(middle);
    QCOMPARE(clicks, QList<QWindow *>({ nullptr }));
    // Neither has a double click a window to enlarge, nor a drag one to move.
    mouse.press(middle);
    mouse.move({ 0, 0 });
    mouse.release({ 0, 0 });
    mouse.press({ 0, 0 }, 10000);
    mouse.move(middle);
    QCOMPARE(clicks.count(), 2);
}

void SurfaceMouseTest::otherButtons()
{
    VideoWindow video(size);
    QVERIFY(QTest::qWaitForWindowExposed(&video.window(), patience));
    const Clicks clicks;
    for (Qt::MouseButton button : { Qt::RightButton, Qt::MiddleButton }) {
        QTest::mouseClick(&video.window(), button, {}, middle);
        QTest::mouseDClick(&video.window(), button, {}, middle);
    }
    QVERIFY(clicks.isEmpty());
    QCOMPARE(video.window().windowStates(), Qt::WindowStates(Qt::WindowNoState));
}

void SurfaceMouseTest::doubleClickFillsTheScreen()
{
    QFETCH(Mode, mode);
    VideoWindow video(size);
    video.view().setDisplayMode(mode);
    QVERIFY(QTest::qWaitForWindowExposed(&video.window(), patience));
    const Clicks clicks;
    // The press of a double click, and its release.
    QTest::mouseDClick(&video.window(), Qt::LeftButton, {}, middle);
    QVERIFY(video.window().windowStates() & Qt::WindowFullScreen);
    // That of its first press alone.
    QCOMPARE(clicks.count(), 1);

    QTRY_COMPARE(video.window().geometry(), video.window().screen()->geometry());
    // Elsewhere, or it would be the third and fourth press of the same.
    QTest::mouseDClick(&video.window(), Qt::LeftButton, {}, { 100, 100 });
    QVERIFY(!(video.window().windowStates() & Qt::WindowFullScreen));
    QCOMPARE(clicks.count(), 2);
}

void SurfaceMouseTest::clicksThatAreNoDoubleClick()
{
    VideoWindow video(size);
    const Clicks clicks;
    Mouse mouse(video.hostingView());
    const QStyleHints *settings = QGuiApplication::styleHints();
    mouse.click(middle);
    mouse.click(middle, settings->mouseDoubleClickInterval());
    mouse.click(middle + QPointF(settings->mouseDoubleClickDistance() + 1, 0));
    QCOMPARE(clicks.count(), 3);
    QCOMPARE(video.window().windowStates(), Qt::WindowStates(Qt::WindowNoState));
    mouse.click(middle + QPointF(settings->mouseDoubleClickDistance() + 1, 0));
    QCOMPARE(clicks.count(), 3);
    QVERIFY(video.window().windowStates() & Qt::WindowFullScreen);
}

void SurfaceMouseTest::thirdClick()
{
    VideoWindow video(size);
    const Clicks clicks;
    Mouse mouse(video.hostingView());
    for (int posted : { 1, 1, 2, 3 }) {
        mouse.click(middle);
        QCOMPARE(clicks.count(), posted);
    }
    // Only the second of them counts as a double click.
    QVERIFY(video.window().windowStates() & Qt::WindowFullScreen);
}

void SurfaceMouseTest::doubleClickDragsNothing()
{
    VideoWindow video(size);
    video.view().setDisplayMode(Mode::Manual);
    Mouse mouse(video.hostingView());
    mouse.click(middle);
    mouse.press(middle);
    mouse.move({ 600, 250 });
    QCOMPARE(video.hostingView().horizontalPan(), 0.0);
}

void SurfaceMouseTest::dragPans()
{
    VideoWindow video(size);
    video.view().setDisplayMode(Mode::Manual);
    QVERIFY(QTest::qWaitForWindowExposed(&video.window(), patience));
    const PlayerHostingView &view = video.hostingView();
    QTest::mousePress(&video.window(), Qt::LeftButton, {}, middle);
    QCOMPARE(view.horizontalPan(), 0.0);
    struct {
        QPoint place;
        double pan;
    } const steps[] = {
        { { 501, 250 }, 1 / 350.0 },
        { { 675, 250 }, 0.5 },
        { { 850, 20 }, 1 },
        // The way back begins at once, although the mouse had gone too far.
        { { 990, 250 }, 1 },
        { { 815, 250 }, 0.9 },
        { { 500, 400 }, 0 },
        { { 10, 250 }, -1 },
        { { 430, 250 }, -0.2 },
    };
    for (const auto &[place, pan] : steps) {
        QTest::mouseMove(&video.window(), place);
        QVERIFY(std::abs(view.horizontalPan() - pan) < 1e-9);
    }
}

void SurfaceMouseTest::dragInPartsOfPixels()
{
    VideoWindow video(size);
    video.view().setDisplayMode(Mode::Manual);
    Mouse mouse(video.hostingView());
    mouse.press({ 500.25, 250 });
    mouse.move({ 500.75, 250 });
    QVERIFY(std::abs(video.hostingView().horizontalPan() - 0.5 / 350) < 1e-9);
}

void SurfaceMouseTest::dragIsRelativeToWhereItBegan()
{
    VideoWindow video(size);
    video.view().setDisplayMode(Mode::Manual);
    const PlayerHostingView &view = video.hostingView();
    Mouse mouse(video.hostingView());
    for (double pan : { 0.2, 0.4, 0.6, 0.8, 1.0, 1.0 }) {
        mouse.press({ 100, 10 }, 10000);
        mouse.move({ 170, 10 });
        mouse.release({ 170, 10 });
        QVERIFY(std::abs(view.horizontalPan() - pan) < 1e-9);
    }
}

void SurfaceMouseTest::dragOfANarrowView_data()
{
    QTest::addColumn<double>("width");
    QTest::addColumn<double>("distance");
    QTest::newRow("wide") << 4000.0 << 1400.0;
    QTest::newRow("at the limit") << 1 / 0.35 << 1.0;
    QTest::newRow("beyond it") << 2.0 << 1.0;
    QTest::newRow("without any width") << 0.0 << 1.0;
}

void SurfaceMouseTest::dragOfANarrowView()
{
    QFETCH(double, width);
    QFETCH(double, distance);
    PlayerHostingView view;
    view.setSize({ width, 500 });
    view.setDisplayMode(Mode::Manual);
    Mouse mouse(view);
    mouse.press({ 0.5, 10 });
    mouse.move({ 0.5 - distance / 4, 10 });
    QVERIFY(std::abs(view.horizontalPan() + 0.25) < 1e-9);
}

void SurfaceMouseTest::dragEndsWithTheRelease()
{
    VideoWindow video(size);
    video.view().setDisplayMode(Mode::Manual);
    Mouse mouse(video.hostingView());
    mouse.press(middle);
    mouse.release(middle);
    mouse.move({ 700, 250 });
    QCOMPARE(video.hostingView().horizontalPan(), 0.0);
}

// Without a release, which goes elsewhere.
void SurfaceMouseTest::dragEndsWhenTheSurfaceGoes()
{
    VideoWindow video(size);
    video.view().setDisplayMode(Mode::Manual);
    QVERIFY(QTest::qWaitForWindowExposed(&video.window(), patience));
    PlayerHostingView &view = video.hostingView();
    QTest::mousePress(&video.window(), Qt::LeftButton, {}, middle);
    QTest::mouseMove(&video.window(), { 675, 250 });
    QCOMPARE(view.horizontalPan(), 0.5);
    video.view().setVisible(false);
    video.view().setVisible(true);
    Mouse(view).move({ 500, 250 });
    QCOMPARE(view.horizontalPan(), 0.5);
}

void SurfaceMouseTest::dragPansInManualOnly()
{
    for (Mode mode : { Mode::Normal, Mode::Fill, Mode::Rotate, Mode::Smart }) {
        PlayerHostingView view;
        view.setSize(size);
        view.setDisplayMode(mode);
        Mouse mouse(view);
        mouse.press(middle);
        mouse.move({ 700, 250 });
        QCOMPARE(view.horizontalPan(), 0.0);
    }
}

// Through the display server, whose window manager does the moving.
void SurfaceMouseTest::dragMovesTheWindow()
{
    QFETCH(Mode, mode);
    VideoWindow video(size);
    video.view().setDisplayMode(mode);
    QVERIFY(QTest::qWaitForWindowActive(&video.window(), patience));
    const Clicks clicks;
    const int before = xOnTheScreen(video.window());
    const QPoint start = video.window().mapToGlobal(middle);
    QVERIFY(xdotool(moveTo(start) + QStringLiteral(" mousedown 1")));
    QTRY_COMPARE(clicks.count(), 1);

    int distance = 0;
    const auto isDragged = [&] {
        distance = std::min(distance + 20, 200);
        xdotool(moveTo(start + QPoint(distance, 0)));
        return mode == Mode::Manual ? video.hostingView().horizontalPan() > 0.5
                                    : xOnTheScreen(video.window()) > before + 100;
    };
    QTRY_VERIFY(isDragged());
    QVERIFY(xdotool(QStringLiteral("mouseup 1")));
    if (mode == Mode::Manual)
        QCOMPARE(xOnTheScreen(video.window()), before);
    else
        QCOMPARE(video.hostingView().horizontalPan(), 0.0);
    QCOMPARE(clicks.count(), 1);
}

// A hand that is not quite still does not drag.
void SurfaceMouseTest::doubleClickSurvivesADragOfNothing()
{
    QFETCH(Mode, mode);
    VideoWindow video(size);
    video.view().setDisplayMode(mode);
    QVERIFY(QTest::qWaitForWindowActive(&video.window(), patience));
    QStyleHints *settings = QGuiApplication::styleHints();
    const int interval = settings->mouseDoubleClickInterval();
    settings->setMouseDoubleClickInterval(patience);
    const Clicks clicks;
    QVERIFY(xdotool(moveTo(video.window().mapToGlobal(middle))
        + QStringLiteral(" mousedown 1 mousemove_relative 3 0 mouseup 1")));
    QTRY_COMPARE(clicks.count(), 1);
    QVERIFY(xdotool(QStringLiteral("click 1")));
    QTRY_COMPARE(video.window().visibility(), QWindow::FullScreen);
    QCOMPARE(clicks.count(), 1);
    settings->setMouseDoubleClickInterval(interval);
}

int main(int argc, char *argv[])
{
    SurfaceMouseTest test;
    return VideoWindow::runTest(test, argc, argv);
}

#include "tst_surface_mouse.moc"
