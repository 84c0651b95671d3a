// The views of the web players, with a browser that records what it is asked for.
#include "platform/PlayerNotifications.h"
#include "platform/PlayerSurfaceRegistry.h"
#include "sources/OKVideoContent.h"
#include "sources/web/OKVideoPlayerView.h"
#include "sources/web/YouTubePage.h"
#include "sources/web/YouTubePlayerView.h"
#include "sources/WebPlayerRegistry.h"
#include "sources/YouTubeContent.h"
#include "support/Patience.h"

#include <QQuickWindow>
#include <QSignalSpy>

#include <unistd.h>

using namespace zeph;
using namespace std::chrono_literals;

namespace {

const YouTubeContent video { QStringLiteral("abc"), {} };
const YouTubeContent videoInPlaylist { QStringLiteral("abc"), QStringLiteral("PLx") };
const OKVideoContent okVideo { QStringLiteral("123") };
const OKVideoContent otherOKVideo { QStringLiteral("456") };

const QString ready = QStringLiteral("zeph:ready");
const QString first = QStringLiteral("first();");
const QString second = QStringLiteral("second();");

class StandInBrowser : public QQuickItem, public WebBrowser {
    Q_OBJECT
    Q_INTERFACES(zeph::WebBrowser)

public:
    using QQuickItem::QQuickItem;

    void setObserver(WebBrowserObserver *newObserver) override { observer = newObserver; }
    void setUserScript(const QString &script) override { userScript = script; }
    void loadHtml(const QString &html, const QUrl &baseUrl) override
    {
        pages += html;
        addresses += baseUrl;
    }
    void load(const QUrl &url, const QByteArray &referer) override
    {
        addresses += url;
        referers += referer;
    }
    void stopLoading() override { ++stops; }
    void evaluateJavaScript(const QString &script) override { scripts += script; }
    void leaveFullScreen() override { ++leavesOfFullScreen; }

    WebBrowserObserver *observer = nullptr;
    QString userScript;
    QStringList pages;
    QList<QUrl> addresses;
    QList<QByteArray> referers;
    QStringList scripts;
    int stops = 0;
    int leavesOfFullScreen = 0;
};

/// Gives the view a browser, which the view owns as QML would have it.
StandInBrowser *addBrowser(WebPlayerView &view)
{
    auto *browser = new StandInBrowser(&view);
    view.setBrowser(browser);
    return browser;
}

template <typename Content> QVariant value(const Content &content)
{
    return QVariant::fromValue(content);
}

} // namespace

class WebPlayerViewsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    }

    void wantsABrowserOnceThereIsContent()
    {
        YouTubePlayerView view;
        QVERIFY(!view.wantsBrowser());
        view.setContent(value(video));
        QVERIFY(view.wantsBrowser());
        QCOMPARE(view.failure(), QString());
    }

    void loadsOurPageAtOurOrigin()
    {
        YouTubePlayerView view;
        view.setContent(value(video));
        const auto *browser = addBrowser(view);
        QCOMPARE(browser->pages, QStringList(youTubePage(video)));
        QCOMPARE(browser->addresses,
            QList<QUrl>({ QUrl(QStringLiteral("https://zephplayer.example/")) }));
    }

    void loadsOKsPageAsIfFromOK()
    {
        OKVideoPlayerView view;
        view.setContent(value(okVideo));
        const auto *browser = addBrowser(view);
        QCOMPARE(browser->addresses,
            QList<QUrl>(
                { QUrl(QStringLiteral("https://ok.ru/videoembed/123?autoplay=1&nochat=1")) }));
        QCOMPARE(browser->referers, QList<QByteArray>({ "https://ok.ru/" }));
    }

    void equalContentIsLoadedOnce()
    {
        YouTubePlayerView view;
        view.setContent(value(video));
        const auto *browser = addBrowser(view);
        view.setContent(value(video));
        QCOMPARE(browser->pages.size(), 1);
    }

    void anotherPlaylistIsOtherContent()
    {
        YouTubePlayerView view;
        view.setContent(value(video));
        const auto *browser = addBrowser(view);
        view.setContent(value(videoInPlaylist));
        QCOMPARE(browser->pages, QStringList({ youTubePage(video), youTubePage(videoInPlaylist) }));
    }

    void noContentChangesNothing()
    {
        OKVideoPlayerView view;
        view.setContent(value(okVideo));
        const auto *browser = addBrowser(view);
        view.setContent({});
        QCOMPARE(browser->addresses.size(), 1);
        QCOMPARE(browser->stops, 0);
    }

    void isRegisteredWhileItLives()
    {
        auto view = std::make_unique<YouTubePlayerView>();
        QVERIFY(!YouTubePlayerRegistry::shared().webView());
        view->setContent(value(video));
        QVERIFY(YouTubePlayerRegistry::shared().webView());
        QVERIFY(!OKVideoPlayerRegistry::shared().webView());
        QCOMPARE(PlayerSurfaceRegistry::shared().view(), view.get());
        view.reset();
        QVERIFY(!YouTubePlayerRegistry::shared().webView());
        QCOMPARE(PlayerSurfaceRegistry::shared().view(), nullptr);
    }

    void leavesANewerViewRegistered()
    {
        auto view = std::make_unique<YouTubePlayerView>();
        view->setContent(value(video));
        YouTubePlayerView newer;
        newer.setContent(value(video));
        WebPage *page = YouTubePlayerRegistry::shared().webView();
        view.reset();
        QCOMPARE(YouTubePlayerRegistry::shared().webView(), page);
        QCOMPARE(PlayerSurfaceRegistry::shared().view(), &newer);
    }

    void registersAgainWithEachUpdate()
    {
        YouTubePlayerView view;
        view.setContent(value(video));
        WebPage *page = YouTubePlayerRegistry::shared().webView();
        YouTubePlayerRegistry::shared().setWebView(nullptr);
        PlayerSurfaceRegistry::shared().setView(nullptr);
        view.setContent(value(video));
        QCOMPARE(YouTubePlayerRegistry::shared().webView(), page);
        QCOMPARE(PlayerSurfaceRegistry::shared().view(), &view);
    }

    void stopsLoadingInTheEnd()
    {
        auto view = std::make_unique<YouTubePlayerView>();
        view->setContent(value(video));
        StandInBrowser browser;
        view->setBrowser(&browser);
        view.reset();
        QCOMPARE(browser.stops, 1);
        QCOMPARE(browser.observer, nullptr);
    }

    void commandsWaitUntilThePageIsReady()
    {
        YouTubePlayerView view;
        view.setContent(value(video));
        WebPage *page = YouTubePlayerRegistry::shared().webView();
        page->evaluateJavaScript(first);
        auto *browser = addBrowser(view);
        page->evaluateJavaScript(second);
        browser->observer->pageLoaded();
        browser->observer->pageSaid(QStringLiteral("zeph:script-runs"));
        QCOMPARE(browser->scripts, QStringList());
        browser->observer->pageSaid(ready);
        QCOMPARE(browser->scripts, QStringList({ first, second }));
        page->evaluateJavaScript(first);
        QCOMPARE(browser->scripts, QStringList({ first, second, first }));
    }

    void commandsForOneVideoAreNotForTheNext()
    {
        OKVideoPlayerView view;
        view.setContent(value(okVideo));
        auto *browser = addBrowser(view);
        WebPage *page = OKVideoPlayerRegistry::shared().webView();
        page->evaluateJavaScript(first);
        view.setContent(value(otherOKVideo));
        page->evaluateJavaScript(second);
        browser->observer->pageSaid(ready);
        QCOMPARE(browser->scripts, QStringList(second));
        // Nor do they go to the last one's page while the next one is loaded.
        view.setContent(value(okVideo));
        page->evaluateJavaScript(first);
        QCOMPARE(browser->scripts, QStringList(second));
    }

    void whatElseThePageSaysMeansNothing()
    {
        YouTubePlayerView view;
        view.setContent(value(video));
        auto *browser = addBrowser(view);
        YouTubePlayerRegistry::shared().webView()->evaluateJavaScript(first);
        browser->observer->pageSaid(QStringLiteral("zeph:ready, they say"));
        QCOMPARE(browser->scripts, QStringList());
        QCOMPARE(view.failure(), QString());
    }

    void aPageThatFailsCanBeTriedAgain()
    {
        YouTubePlayerView view;
        view.setContent(value(video));
        auto *browser = addBrowser(view);
        QSignalSpy changes(&view, &WebPlayerView::failureChanged);
        browser->observer->pageFailed();
        QCOMPARE(view.failure(), QStringLiteral("The video page could not be loaded."));
        QVERIFY(view.canRetry());
        YouTubePlayerRegistry::shared().webView()->evaluateJavaScript(first);
        view.retry();
        QCOMPARE(view.failure(), QString());
        QCOMPARE(changes.size(), 2);
        QCOMPARE(browser->pages.size(), 2);
        browser->observer->pageSaid(ready);
        QCOMPARE(browser->scripts, QStringList(first));
    }

    void aScriptThatFailsIsAPageThatFails()
    {
        YouTubePlayerView view;
        view.setContent(value(video));
        auto *browser = addBrowser(view);
        browser->observer->pageSaid(QStringLiteral("zeph:script-failed"));
        QCOMPARE(view.failure(), QStringLiteral("The video page could not be loaded."));
    }

    void aServiceThatDoesNotAnswer()
    {
        YouTubePlayerView view;
        view.setPatience(10ms);
        view.setContent(value(video));
        auto *browser = addBrowser(view);
        // The page around the player is there, but that is not what is waited for.
        browser->observer->pageLoaded();
        QTRY_COMPARE(view.failure(), QStringLiteral("The video service does not answer."));
        QVERIFY(view.canRetry());
        // Better late than never.
        browser->observer->pageSaid(ready);
        QCOMPARE(view.failure(), QString());
    }

    void aPlayerThatDoesNotGetReady()
    {
        YouTubePlayerView view;
        view.setPatience(10ms);
        view.setContent(value(video));
        addBrowser(view)->observer->pageSaid(QStringLiteral("zeph:script-runs"));
        QTRY_COMPARE(view.failure(), QStringLiteral("The video service does not answer."));
    }

    void anOKPageIsWaitedForUntilItIsLoaded()
    {
        OKVideoPlayerView view;
        view.setPatience(10ms);
        view.setContent(value(okVideo));
        auto *browser = addBrowser(view);
        QTRY_COMPARE(view.failure(), QStringLiteral("The video service does not answer."));
        view.retry();
        browser->observer->pageLoaded();
        // One that is waited for from now on, for just as long.
        OKVideoPlayerView other;
        other.setPatience(10ms);
        other.setContent(value(okVideo));
        addBrowser(other);
        QTRY_VERIFY(!other.failure().isEmpty());
        QCOMPARE(view.failure(), QString());
    }

    void aCrashIsSurvivedOnce()
    {
        OKVideoPlayerView view;
        view.setContent(value(okVideo));
        auto *browser = addBrowser(view);
        browser->observer->rendererTerminated();
        QTRY_COMPARE(browser->addresses.size(), 2);
        QCOMPARE(view.failure(), QString());
        browser->observer->rendererTerminated();
        QCOMPARE(view.failure(), QStringLiteral("The video page has crashed."));
        QCOMPARE(browser->addresses.size(), 2);
        view.retry();
        QCOMPARE(browser->addresses.size(), 3);
        browser->observer->rendererTerminated();
        QTRY_COMPARE(browser->addresses.size(), 4);
    }

    void aMissingBrowserIsReported()
    {
        YouTubePlayerView view;
        view.setContent(value(video));
        view.browserIsMissing();
        QVERIFY(!view.failure().isEmpty());
        QVERIFY(!view.canRetry());
    }

    void rootIsToldWhyThereIsNoPage()
    {
        if (::geteuid() != 0)
            QSKIP("only for root");
        qunsetenv("QTWEBENGINE_DISABLE_SANDBOX");
        YouTubePlayerView view;
        view.setContent(value(video));
        QVERIFY(!view.wantsBrowser());
        QVERIFY(view.failure().contains(QStringLiteral("root")));
        QVERIFY(!view.canRetry());

        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "0");
        view.retry();
        QVERIFY(!view.wantsBrowser());
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
        view.retry();
        QVERIFY(view.wantsBrowser());
        QCOMPARE(view.failure(), QString());
    }

    void aPressIsPostedWithTheWindow()
    {
        QQuickWindow window;
        YouTubePlayerView view(window.contentItem());
        view.setContent(value(video));
        auto *browser = addBrowser(view);
        QList<QWindow *> clicked;
        NotificationCenter::defaultCenter().observe(
            playerSurfaceClicked, this, [&clicked](QWindow *about) { clicked += about; });
        browser->observer->mousePressed();
        NotificationCenter::defaultCenter().disconnect(this);
        QCOMPARE(clicked, QList<QWindow *>({ &window }));
    }

    void thePageFillsTheScreenByTheWindow()
    {
        QQuickWindow window;
        window.show();
        YouTubePlayerView view(window.contentItem());
        view.setContent(value(video));
        auto *browser = addBrowser(view);
        browser->observer->fullScreenRequested(true);
        QCOMPARE(window.visibility(), QWindow::FullScreen);
        browser->observer->fullScreenRequested(false);
        QCOMPARE(window.visibility(), QWindow::Windowed);
        QCOMPARE(browser->leavesOfFullScreen, 0);
    }

    void thePageLeavesFullScreenWithTheWindow()
    {
        QQuickWindow window;
        window.show();
        YouTubePlayerView view(window.contentItem());
        view.setContent(value(video));
        auto *browser = addBrowser(view);
        browser->observer->fullScreenRequested(true);
        window.showNormal();
        QCOMPARE(browser->leavesOfFullScreen, 1);
        browser->observer->fullScreenRequested(false);
        QCOMPARE(window.visibility(), QWindow::Windowed);
    }

    void aWindowThatFilledTheScreenBeforeStaysSo()
    {
        QQuickWindow window;
        window.showFullScreen();
        YouTubePlayerView view(window.contentItem());
        view.setContent(value(video));
        auto *browser = addBrowser(view);
        browser->observer->fullScreenRequested(true);
        browser->observer->fullScreenRequested(false);
        QCOMPARE(window.visibility(), QWindow::FullScreen);
    }

    void aViewThatGoesGivesTheWindowBack()
    {
        QQuickWindow window;
        window.show();
        auto view = std::make_unique<YouTubePlayerView>(window.contentItem());
        view->setContent(value(video));
        addBrowser(*view)->observer->fullScreenRequested(true);
        QCOMPARE(window.visibility(), QWindow::FullScreen);
        view.reset();
        QCOMPARE(window.visibility(), QWindow::Windowed);
    }
};

QTEST_MAIN(WebPlayerViewsTest)
#include "tst_web_player_views.moc"
