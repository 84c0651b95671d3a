// What the view of a web player does to the window that it is in.
#include "platform/PlayerNotifications.h"
#include "StandInBrowser.h"
#include "support/Patience.h"

#include <QQuickWindow>

using namespace zeph;

class WebPlayerWindowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1"); }

    void init()
    {
        QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
        m_window.emplace();
        m_player.emplace(YouTubeContent { QStringLiteral("abc"), {} }, m_window->contentItem());
    }

    void cleanup()
    {
        m_player.reset();
        m_window.reset();
    }

    void aPressIsPostedWithTheWindow()
    {
        QList<QWindow *> clicked;
        NotificationCenter::defaultCenter().observe(
            playerSurfaceClicked, this, [&clicked](QWindow *about) { clicked += about; });
        m_player->browser->observer->mousePressed();
        NotificationCenter::defaultCenter().disconnect(this);
        QCOMPARE(clicked, QList<QWindow *>({ &*m_window }));
    }

    void thePageFillsTheScreenByTheWindow()
    {
        m_window->show();
        requestFullScreen(true);
        QCOMPARE(m_window->visibility(), QWindow::FullScreen);
        requestFullScreen(false);
        QCOMPARE(m_window->visibility(), QWindow::Windowed);
        QCOMPARE(m_player->browser->leavesOfFullScreen, 0);
    }

    void thePageLeavesFullScreenWithTheWindow()
    {
        m_window->show();
        requestFullScreen(true);
        m_window->showNormal();
        QCOMPARE(m_player->browser->leavesOfFullScreen, 1);
        requestFullScreen(false);
        QCOMPARE(m_window->visibility(), QWindow::Windowed);
    }

    void aWindowThatFilledTheScreenBeforeStaysSo()
    {
        m_window->showFullScreen();
        requestFullScreen(true);
        requestFullScreen(false);
        QCOMPARE(m_window->visibility(), QWindow::FullScreen);
    }

    void aViewThatGoesGivesTheWindowBack()
    {
        m_window->show();
        requestFullScreen(true);
        QCOMPARE(m_window->visibility(), QWindow::FullScreen);
        m_player.reset();
        QCOMPARE(m_window->visibility(), QWindow::Windowed);
    }

private:
    void requestFullScreen(bool fullScreen)
    {
        m_player->browser->observer->fullScreenRequested(fullScreen);
    }

    std::optional<QQuickWindow> m_window;
    std::optional<LoadedYouTubeView> m_player;
};

QTEST_MAIN(WebPlayerWindowTest)
#include "tst_web_player_window.moc"
