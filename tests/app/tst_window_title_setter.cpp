// The main window's title, sizes and fit, with real windows and a real window manager.
#include "app/WindowFit.h"
#include "app/WindowTitleSetter.h"
#include "app/WindowTitleSetterCoordinator.h"
#include "support/EngineTest.h"
#include "support/XWindow.h"

#include <QGuiApplication>
#include <QQuickWindow>
#include <QScreen>

#include <QSignalSpy>

#include <limits>

using namespace zeph;

namespace {

/// A window with an item that sets it up, as the main window's markup makes them.
class TitledWindow {
public:
    TitledWindow()
    {
        m_setter->setParent(window.contentItem());
        m_setter->setParentItem(window.contentItem());
        static_cast<QQmlParserStatus *>(m_setter)->componentComplete();
    }

    template <typename Value> void set(const char *property, const Value &value)
    {
        m_setter->setProperty(property, QVariant::fromValue(value));
    }
    bool show()
    {
        window.show();
        const auto hasFrame = [this] { return !window.frameMargins().isNull(); };
        return QTest::qWaitFor(hasFrame, patience) && settles();
    }
    /// Waits until its width has not changed for longer than a fit takes.
    bool settles()
    {
        QSignalSpy resized(&window, &QWindow::widthChanged);
        for (int changes = 0; changes < 10; ++changes) {
            if (!resized.wait(int((LiveResize::settled * 2).count())))
                return true;
        }
        return false;
    }
    QUuid load(double aspectRatio)
    {
        const QUuid id = QUuid::createUuid();
        set("mediaLoadID", id);
        set("videoAspectRatio", aspectRatio);
        set("videoAspectMediaLoadID", id);
        return id;
    }
    /// The width that a picture of this ratio is to have.
    int fitted(double aspectRatio, bool sidebarVisible = false) const
    {
        return qRound(fittedContentWidth(aspectRatio, window.height(), sidebarVisible));
    }

    QQuickWindow window;

private:
    WindowTitleSetter *const m_setter = new WindowTitleSetter;
};

/// Where the window is on the screen, with its frame, as the display server and the window manager
/// have it.
QRect frameOnScreen(const QWindow &window)
{
    return XWindow(QString::number(window.winId())).frame();
}

} // namespace

class WindowTitleSetterTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // First: the size is given once in a run.
    void theFirstWindowHasItsSizeInTheMiddle()
    {
        TitledWindow first;
        QCOMPARE(first.window.size(), QSize(700, 430));
        QVERIFY(first.show());
        QCOMPARE(first.window.size(), QSize(700, 430));
        const QPoint off = frameOnScreen(first.window).center()
            - first.window.screen()->availableGeometry().center();
        const QMargins frame = first.window.frameMargins();
        QVERIFY(std::abs(off.x()) <= frame.left() + frame.right() + 1);
        QVERIFY(std::abs(off.y()) <= frame.top() + frame.bottom() + 1);

        TitledWindow second;
        QVERIFY(second.window.size() != QSize(700, 430));
    }

    void theTitleFollows()
    {
        TitledWindow test;
        test.set("title", QStringLiteral("שלום.mp4"));
        QTRY_VERIFY(test.window.title() == QStringLiteral("שלום.mp4"));
        QVERIFY(test.show());
        test.set("title", QStringLiteral("another"));
        QTRY_VERIFY(test.window.title() == QStringLiteral("another"));
    }

    void theSmallestSizes()
    {
        TitledWindow test;
        test.window.resize(600, 400);
        QVERIFY(test.show());
        QCOMPARE(test.window.minimumSize(), QSize(520, 360));
        test.set("sidebarVisible", true);
        QTRY_VERIFY(test.window.size() == QSize(780, 430));
        QCOMPARE(test.window.minimumSize(), QSize(780, 360));
        QVERIFY(test.settles());
        test.set("sidebarVisible", false);
        QTRY_VERIFY(test.window.minimumSize() == QSize(520, 360));
        QCOMPARE(test.window.size(), QSize(780, 430));
    }

    void aHighWindowKeepsItsHeightForTheSidebar()
    {
        TitledWindow test;
        test.window.resize(600, 500);
        QVERIFY(test.show());
        test.set("sidebarVisible", true);
        QTRY_VERIFY(test.window.size() == QSize(780, 500));
    }

    void aWideWindowKeepsItsSizeForTheSidebar()
    {
        TitledWindow test;
        test.window.resize(800, 380);
        QVERIFY(test.show());
        test.set("sidebarVisible", true);
        QTRY_VERIFY(test.window.minimumSize() == QSize(780, 360));
        QCOMPARE(test.window.size(), QSize(800, 380));
    }

    void fits_data()
    {
        QTest::addColumn<double>("aspectRatio");
        QTest::addColumn<bool>("sidebarVisible");
        QTest::addColumn<int>("width");
        QTest::newRow("16:9") << 16.0 / 9 << false << 764;
        QTest::newRow("16:9 with sidebar") << 16.0 / 9 << true << 1010;
        QTest::newRow("21:9") << 21.0 / 9 << false << 1003;
        QTest::newRow("9:16") << 9.0 / 16 << false << 520;
        QTest::newRow("9:16 with sidebar") << 9.0 / 16 << true << 780;
    }
    void fits()
    {
        QFETCH(double, aspectRatio);
        QFETCH(bool, sidebarVisible);
        QFETCH(int, width);
        TitledWindow test;
        test.set("sidebarVisible", sidebarVisible);
        test.window.setGeometry(100, 100, 790, 464);
        QVERIFY(test.show());
        const QRect before = frameOnScreen(test.window);
        test.load(aspectRatio);
        QTRY_VERIFY(test.window.width() == width);
        QCOMPARE(test.window.height(), 464);
        const QMargins margins = test.window.frameMargins();
        QTRY_VERIFY(frameOnScreen(test.window).width() == width + margins.left() + margins.right());
        QCOMPARE(frameOnScreen(test.window).topLeft(), before.topLeft());
        QCOMPARE(frameOnScreen(test.window).height(), before.height());
    }

    void aPictureWiderThanTheScreen()
    {
        TitledWindow test;
        test.window.setGeometry(600, 100, 700, 464);
        QVERIFY(test.show());
        test.load(20);
        const QRect available = test.window.screen()->availableGeometry();
        QTRY_VERIFY(frameOnScreen(test.window).width() == available.width());
        QTRY_VERIFY(frameOnScreen(test.window).left() == available.left());
        QCOMPARE(test.window.height(), 464);
    }

    void aWindowAtTheRightEdgeMovesIn()
    {
        TitledWindow test;
        const QRect available = test.window.screen()->availableGeometry();
        test.window.setGeometry(available.right() - 650, 100, 600, 464);
        QVERIFY(test.show());
        test.load(16.0 / 9);
        QTRY_VERIFY(test.window.width() == 764);
        QTRY_VERIFY(frameOnScreen(test.window).right() == available.right());
    }

    void noRatioFitsNothing_data()
    {
        QTest::addColumn<double>("aspectRatio");
        QTest::newRow("nothing") << 0.0;
        QTest::newRow("negative") << -1.5;
        QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
        QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN();
    }
    void noRatioFitsNothing()
    {
        QFETCH(double, aspectRatio);
        TitledWindow test;
        test.window.resize(700, 464);
        QVERIFY(test.show());
        test.load(aspectRatio);
        QVERIFY(test.settles());
        QCOMPARE(test.window.width(), 700);
        // The load is still to be fitted.
        test.set("videoAspectRatio", 16.0 / 9);
        QTRY_VERIFY(test.window.width() == 764);
    }

    void aRatioOfAnotherLoadWaits()
    {
        TitledWindow test;
        test.window.resize(700, 464);
        QVERIFY(test.show());
        test.set("videoAspectRatio", 16.0 / 9);
        test.set("videoAspectMediaLoadID", QUuid::createUuid());
        const QUuid id = QUuid::createUuid();
        test.set("mediaLoadID", id);
        QVERIFY(test.settles());
        QCOMPARE(test.window.width(), 700);
        test.set("videoAspectMediaLoadID", id);
        QTRY_VERIFY(test.window.width() == 764);
    }

    void aLoadIsFittedOnce()
    {
        TitledWindow test;
        test.window.resize(700, 464);
        QVERIFY(test.show());
        test.load(16.0 / 9);
        QTRY_VERIFY(test.window.width() == 764);
        QVERIFY(test.settles());
        test.window.resize(900, 464);
        test.set("videoAspectRatio", 21.0 / 9);
        QVERIFY(test.settles());
        QCOMPARE(test.window.width(), 900);
    }

    void ofTwoLoadsTheLastIsFitted()
    {
        TitledWindow test;
        test.window.resize(700, 464);
        QVERIFY(test.show());
        QList<int> widths;
        connect(&test.window, &QWindow::widthChanged, this, [&](int width) { widths << width; });
        test.load(21.0 / 9);
        test.load(16.0 / 9);
        QTRY_VERIFY(test.window.width() == 764);
        QCOMPARE(widths, QList<int> { 764 });
    }

    void fullScreenIsFittedOnceItIsLeft()
    {
        TitledWindow test;
        test.window.resize(700, 464);
        QVERIFY(test.show());
        test.window.setWindowState(Qt::WindowFullScreen);
        test.set("isFullScreen", true);
        const QSize screen = test.window.screen()->size();
        QTRY_VERIFY(test.window.size() == screen);
        test.load(16.0 / 9);
        QVERIFY(test.settles());
        QCOMPARE(test.window.size(), screen);
        test.window.setWindowState(Qt::WindowNoState);
        test.set("isFullScreen", false);
        QTRY_VERIFY(test.window.size() == QSize(764, 464));
    }

    void aMaximizedWindowIsFittedOnceItIsRestored()
    {
        TitledWindow test;
        test.window.resize(700, 464);
        QVERIFY(test.show());
        test.window.setWindowState(Qt::WindowMaximized);
        QTRY_VERIFY(test.window.width() > 1000);
        const QSize maximized = test.window.size();
        test.load(16.0 / 9);
        QVERIFY(test.settles());
        QCOMPARE(test.window.size(), maximized);
        test.window.setWindowState(Qt::WindowNoState);
        QTRY_VERIFY(test.window.size() == QSize(764, 464));
    }

    void aWindowThatIsBeingResizedIsFittedAfterwards()
    {
        TitledWindow test;
        test.window.resize(700, 464);
        QVERIFY(test.show());
        QSignalSpy resized(&test.window, &QWindow::widthChanged);
        test.window.resize(720, 464);
        QTRY_VERIFY(!resized.isEmpty());
        test.load(16.0 / 9);
        for (int width = 730; width <= 760; width += 5) {
            test.window.resize(width, 464);
            QVERIFY(resized.wait(patience));
            QCOMPARE(test.window.width(), width);
        }
        QTRY_VERIFY(test.window.width() == 764);
    }

    void aWindowThatIsGoneIsNotFitted()
    {
        const QUuid id = QUuid::createUuid();
        WindowTitleSetter setter;
        auto window = std::make_unique<QQuickWindow>();
        setter.setParentItem(window->contentItem());
        setter.setProperty("mediaLoadID", QVariant::fromValue(id));
        setter.setProperty("videoAspectRatio", 16.0 / 9);
        setter.setProperty("videoAspectMediaLoadID", QVariant::fromValue(id));
        QCoreApplication::processEvents(); // From now on it is about to be fitted.
        window.reset();
        outwait(WindowTitleSetter::Coordinator::fitDelay);
    }
};

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    WindowTitleSetterTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_window_title_setter.moc"
