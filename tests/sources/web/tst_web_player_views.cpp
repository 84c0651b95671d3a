// The views of the web players, with a browser that records what it is asked for.
#include "platform/PlayerSurfaceRegistry.h"
#include "sources/web/YouTubePage.h"
#include "sources/WebPlayerRegistry.h"
#include "StandInBrowser.h"
#include "support/Patience.h"

#include <QSignalSpy>

#include <unistd.h>

using namespace zeph;
using namespace std::chrono_literals;

namespace {

const YouTubeContent video { QStringLiteral("abc"), {} };
const YouTubeContent videoInPlaylist { QStringLiteral("abc"), QStringLiteral("PLx") };
const OKVideoContent okVideo { QStringLiteral("123") };
const OKVideoContent otherOKVideo { QStringLiteral("456") };

const QString first = QStringLiteral("first();");
const QString second = QStringLiteral("second();");

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
        const LoadedYouTubeView player(video);
        QCOMPARE(
            player.browser->pages, QStringList(youTubePage(video, player.browser->messages())));
        QCOMPARE(player.browser->addresses,
            QList<QUrl>({ QUrl(QStringLiteral("https://zephplayer.example/")) }));
    }

    void loadsOKsPageAsIfFromOK()
    {
        const LoadedOKView player(okVideo);
        QCOMPARE(player.browser->addresses,
            QList<QUrl>(
                { QUrl(QStringLiteral("https://ok.ru/videoembed/123?autoplay=1&nochat=1")) }));
        QCOMPARE(player.browser->referers, QList<QByteArray>({ "https://ok.ru/" }));
    }

    void equalContentIsLoadedOnce()
    {
        LoadedYouTubeView player(video);
        player.view.setContent(value(video));
        QCOMPARE(player.browser->pages.size(), 1);
    }

    void anotherPlaylistIsOtherContent()
    {
        LoadedYouTubeView player(video);
        player.view.setContent(value(videoInPlaylist));
        QCOMPARE(player.browser->pages.size(), 2);
        QCOMPARE(player.browser->pages.constLast(),
            youTubePage(videoInPlaylist, player.browser->messages()));
    }

    void noContentChangesNothing()
    {
        LoadedOKView player(okVideo);
        player.view.setContent({});
        QCOMPARE(player.browser->addresses.size(), 1);
        QCOMPARE(player.browser->stops, 0);
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

    void commandsGoNowhereUntilThePageIsReady()
    {
        YouTubePlayerView view;
        QSignalSpy ready(&YouTubePlayerRegistry::shared(), &WebPlayerRegistry::pageReady);
        view.setContent(value(video));
        WebPage *page = YouTubePlayerRegistry::shared().webView();
        page->evaluateJavaScript(first);
        auto *browser = new StandInBrowser(&view);
        view.setBrowser(browser);
        page->evaluateJavaScript(first);
        browser->observer->pageLoaded();
        browser->observer->pageSaid(browser->messages().scriptRuns);
        QCOMPARE(ready.size(), 0);
        browser->sayReady();
        QCOMPARE(ready.size(), 1);
        QCOMPARE(browser->scripts, QStringList());
        page->evaluateJavaScript(second);
        QCOMPARE(browser->scripts, QStringList(second));
    }

    void commandsGoNowhereWhileTheNextPageIsLoaded()
    {
        LoadedOKView player(okVideo);
        WebPage *page = OKVideoPlayerRegistry::shared().webView();
        player.browser->sayReady();
        player.view.setContent(value(otherOKVideo));
        page->evaluateJavaScript(first);
        player.browser->sayReady();
        page->evaluateJavaScript(second);
        QCOMPARE(player.browser->scripts, QStringList(second));
    }

    // It stays until the next one has come, and may say something meanwhile.
    void theLastPageDoesNotSpeakForTheNext()
    {
        LoadedYouTubeView player(video);
        QSignalSpy ready(&YouTubePlayerRegistry::shared(), &WebPlayerRegistry::pageReady);
        const PageMessages before = player.browser->messages();
        player.view.setContent(value(videoInPlaylist));
        player.browser->observer->pageSaid(before.ready);
        player.browser->observer->pageSaid(before.scriptFailed);
        QCOMPARE(ready.size(), 0);
        QCOMPARE(player.view.failure(), QString());
        player.browser->sayReady();
        QCOMPARE(ready.size(), 1);
    }

    void whatElseThePageSaysMeansNothing()
    {
        LoadedYouTubeView player(video);
        QSignalSpy ready(&YouTubePlayerRegistry::shared(), &WebPlayerRegistry::pageReady);
        player.browser->observer->pageSaid(QStringLiteral("zeph:ready"));
        player.browser->observer->pageSaid(QStringLiteral("zeph:script-failed"));
        QCOMPARE(ready.size(), 0);
        QCOMPARE(player.view.failure(), QString());
    }

    void aPageThatFailsCanBeTriedAgain()
    {
        LoadedYouTubeView player(video);
        QSignalSpy changes(&player.view, &WebPlayerView::failureChanged);
        player.browser->observer->pageFailed();
        QCOMPARE(player.view.failure(), QStringLiteral("The video page could not be loaded."));
        QVERIFY(player.view.canRetry());
        // What is asked of a page that is not there is not kept for the next.
        YouTubePlayerRegistry::shared().webView()->evaluateJavaScript(first);
        player.view.retry();
        QCOMPARE(player.view.failure(), QString());
        QCOMPARE(changes.size(), 2);
        QCOMPARE(player.browser->pages.size(), 2);
        player.browser->sayReady();
        YouTubePlayerRegistry::shared().webView()->evaluateJavaScript(second);
        QCOMPARE(player.browser->scripts, QStringList(second));
    }

    void aScriptThatFailsIsAPageThatFails()
    {
        LoadedYouTubeView player(video);
        player.browser->observer->pageSaid(player.browser->messages().scriptFailed);
        QCOMPARE(player.view.failure(), QStringLiteral("The video page could not be loaded."));
    }

    void aServiceThatDoesNotAnswer()
    {
        LoadedYouTubeView player(video, 10ms);
        // The page around the player is there, but that is not what is waited for.
        player.browser->observer->pageLoaded();
        QTRY_COMPARE(player.view.failure(), QStringLiteral("The video service does not answer."));
        QVERIFY(player.view.canRetry());
        // Better late than never.
        player.browser->sayReady();
        QCOMPARE(player.view.failure(), QString());
    }

    void aPlayerThatDoesNotGetReady()
    {
        LoadedYouTubeView player(video, 10ms);
        player.browser->observer->pageSaid(player.browser->messages().scriptRuns);
        QTRY_COMPARE(player.view.failure(), QStringLiteral("The video service does not answer."));
    }

    void anOKPageIsWaitedForUntilItIsLoaded()
    {
        LoadedOKView player(okVideo, 10ms);
        QTRY_COMPARE(player.view.failure(), QStringLiteral("The video service does not answer."));
        player.view.retry();
        player.browser->observer->pageLoaded();
        // One that is waited for from now on, for just as long.
        LoadedOKView other(okVideo, 10ms);
        QTRY_VERIFY(!other.view.failure().isEmpty());
        QCOMPARE(player.view.failure(), QString());
    }

    void aCrashIsSurvivedOnce()
    {
        LoadedOKView player(okVideo);
        player.browser->observer->rendererTerminated();
        QTRY_COMPARE(player.browser->addresses.size(), 2);
        QCOMPARE(player.view.failure(), QString());
        player.browser->observer->rendererTerminated();
        QCOMPARE(player.view.failure(), QStringLiteral("The video page has crashed."));
        QCOMPARE(player.browser->addresses.size(), 2);
        player.view.retry();
        QCOMPARE(player.browser->addresses.size(), 3);
        player.browser->observer->rendererTerminated();
        QTRY_COMPARE(player.browser->addresses.size(), 4);
    }

    void aMissingBrowserIsReported()
    {
        YouTubePlayerView view;
        view.setContent(value(video));
        view.browserIsMissing();
        const QString reason = view.failure();
        QVERIFY(!reason.isEmpty());
        QVERIFY(!view.canRetry());
        // For the next video, too.
        view.setContent(value(videoInPlaylist));
        QCOMPARE(view.failure(), reason);
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
};

QTEST_MAIN(WebPlayerViewsTest)
#include "tst_web_player_views.moc"
