// The web players in a real browser, with stand-ins of the services.
#include "platform/PlayerNotifications.h"
#include "sources/WebPlayerRegistry.h"
#include "support/EngineTest.h"
#include "WebTest.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace zeph;

namespace {

// What our page asks of the service's player, as the stand-in of that records it.
QJsonObject playerOptions(const char *videoId, const char *list)
{
    QJsonObject parameters {
        { QStringLiteral("autoplay"), 1 },
        { QStringLiteral("controls"), 1 },
        { QStringLiteral("playsinline"), 1 },
        { QStringLiteral("rel"), 0 },
        { QStringLiteral("enablejsapi"), 1 },
        { QStringLiteral("origin"), QStringLiteral("https://zephplayer.example") },
    };
    if (list) {
        parameters.insert(QStringLiteral("listType"), QStringLiteral("playlist"));
        parameters.insert(QStringLiteral("list"), QLatin1String(list));
    }
    QJsonObject options {
        { QStringLiteral("width"), QStringLiteral("100%") },
        { QStringLiteral("height"), QStringLiteral("100%") },
        { QStringLiteral("hasVideoId"), videoId != nullptr },
        { QStringLiteral("playerVars"), parameters },
    };
    if (videoId)
        options.insert(QStringLiteral("videoId"), QLatin1String(videoId));
    return options;
}

QJsonValue json(const char *text)
{
    return QJsonDocument::fromJson(QByteArray("[") + text + ']').array().at(0);
}

// The libraries and other files in the memory of this process.
QByteArray loadedFiles()
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QIODevice::ReadOnly) ? maps.readAll() : QByteArray();
}

// The last call of the player's script.
QJsonValue lastCall(PlayerWindow &player)
{
    return player.valueInPage(QStringLiteral("stub.calls[stub.calls.length - 1]"));
}

} // namespace

class WebPlayersTest : public WebTest {
    Q_OBJECT

public:
    using WebTest::WebTest;

private Q_SLOTS:
    // The first one, as the browser stays once it is there.
    void theBrowserIsLoadedForTheFirstPage()
    {
        PlayerWindow player;
        player.model().play(shortClip(), {}, false);
        QTRY_VERIFY(player.model().currentTime() > 0);
        QVERIFY(!loadedFiles().contains("WebEngine"));
        player.open(okVideo);
        QTRY_VERIFY(player.webView());
        QVERIFY(loadedFiles().contains("WebEngine"));
    }

    void youTubePage_data()
    {
        QTest::addColumn<QString>("address");
        QTest::addColumn<QString>("frame");
        QTest::addColumn<QJsonObject>("options");

        QTest::newRow("video") << video << videoPage << playerOptions("abc", nullptr);
        QTest::newRow("playlist") << playlist << playlistPage << playerOptions(nullptr, "PLx");
        QTest::newRow("both") << videoInPlaylist << videoPage << playerOptions("abc", "PLx");
    }
    void youTubePage()
    {
        QFETCH(QString, address);
        QFETCH(QString, frame);
        QFETCH(QJsonObject, options);

        PlayerWindow player;
        player.open(address);
        QTRY_VERIFY(player.plays());
        QCOMPARE(player.valueInPage(QStringLiteral("stub.options")).toObject(), options);
        QCOMPARE(player.valueInPage(QStringLiteral("origin")),
            QStringLiteral("https://zephplayer.example"));
        const QByteArray referer = "https://zephplayer.example/";
        QCOMPARE(m_services.youTube().lastHeader(playerScript, "Referer"), referer);
        QCOMPARE(m_services.youTube().lastHeader(frame, "Referer"), referer);
    }

    void okPlays()
    {
        PlayerWindow player;
        player.open(okVideo);
        QTRY_VERIFY(player.plays());
        QCOMPARE(player.valueInPage(QStringLiteral("location.href")),
            QStringLiteral("https://ok.ru/videoembed/123?autoplay=1&nochat=1"));
        QCOMPARE(m_services.ok().lastHeader(okPage, "Referer"), QByteArray("https://ok.ru/"));
    }

    void youTubeCommands()
    {
        PlayerWindow player;
        PlayerModel &model = player.model();
        player.open(video);
        QTRY_VERIFY(player.plays());

        model.togglePlayback();
        QTRY_VERIFY(player.videoValue("paused") == true);
        QCOMPARE(lastCall(player), json("[\"pauseVideo\"]"));
        const double position = player.videoValue("currentTime").toDouble();
        model.skip(10);
        QTRY_VERIFY(player.videoValue("currentTime").toDouble() >= position + 10);
        QCOMPARE(lastCall(player),
            QJsonValue(QJsonArray { QStringLiteral("seekTo"), position + 10, true }));
        model.skip(-300);
        QTRY_VERIFY(player.videoValue("currentTime") == 0);
        QCOMPARE(lastCall(player), json("[\"seekTo\", 0, true]"));
        model.toggleMute();
        QTRY_VERIFY(player.videoValue("muted") == true);
        QCOMPARE(lastCall(player), json("[\"mute\"]"));
        model.toggleMute();
        QTRY_VERIFY(player.videoValue("muted") == false);
        model.toggleMute();
        model.setVolume(0.35);
        QTRY_VERIFY(player.videoValue("volume") == 0.35);
        QCOMPARE(player.videoValue("muted"), false);
        QCOMPARE(lastCall(player), json("[\"setVolume\", 35]"));
        model.togglePlayback();
        QTRY_VERIFY(player.videoValue("paused") == false);
        QCOMPARE(lastCall(player), json("[\"playVideo\"]"));
    }

    void okCommands()
    {
        PlayerWindow player;
        PlayerModel &model = player.model();
        player.open(okVideo);
        QTRY_VERIFY(player.plays());

        model.togglePlayback();
        QTRY_VERIFY(player.videoValue("paused") == true);
        const double position = player.videoValue("currentTime").toDouble();
        model.skip(10);
        QTRY_VERIFY(player.videoValue("currentTime") == position + 10);
        model.skip(-300);
        QTRY_VERIFY(player.videoValue("currentTime") == 0);
        model.toggleMute();
        QTRY_VERIFY(player.videoValue("muted") == true);
        model.setVolume(0.35);
        QTRY_VERIFY(player.videoValue("volume") == 0.35);
        QCOMPARE(player.videoValue("muted"), false);
        model.togglePlayback();
        QTRY_VERIFY(player.videoValue("paused") == false);
    }

    void thePageTakesOverVolumeAndMute_data() { eachService(); }
    void thePageTakesOverVolumeAndMute()
    {
        QFETCH(QString, address);
        PlayerWindow player;
        player.open(address);
        player.model().setVolume(0.5);
        player.model().setVolume(0.25);
        player.model().toggleMute();
        QTRY_VERIFY(player.plays());
        QTRY_VERIFY(player.videoValue("muted") == true);
        QCOMPARE(player.videoValue("volume"), 0.25);
        if (player.model().youtubeContent()) {
            QCOMPARE(player.valueInPage(QStringLiteral("stub.calls")),
                json("[[\"playVideo\"], [\"unMute\"], [\"setVolume\", 25], [\"mute\"]]"));
        }
    }

    void commandsWithoutAPageGoNowhere()
    {
        PlayerWindow player;
        YouTubePlayerRegistry::shared().setMuted(true);
        OKVideoPlayerRegistry::shared().setMuted(true);
        QCoreApplication::processEvents();
        player.open(okVideo);
        QTRY_VERIFY(player.plays());
        QCOMPARE(player.videoValue("muted"), false);
    }

    void equalContentIsLoadedOnce()
    {
        PlayerWindow player;
        const int before = m_services.youTube().requestCount(playerScript);
        player.open(video);
        QTRY_VERIFY(player.plays());
        player.open(video);
        player.open(video);
        player.open(videoInPlaylist);
        QTRY_VERIFY(player.valueInPage(QStringLiteral("window.stub && stub.options"))
                        .toObject()
                        .value(QLatin1StringView("playerVars"))
                        .toObject()
                        .contains(QLatin1StringView("list")));
        QCOMPARE(m_services.youTube().requestCount(playerScript), before + 2);
    }

    void aPressIsPostedAndReachesThePage_data() { eachService(); }
    void aPressIsPostedAndReachesThePage()
    {
        QFETCH(QString, address);
        PlayerWindow player;
        player.open(address);
        QTRY_VERIFY(player.plays());
        QList<QWindow *> clicked;
        QObject context;
        NotificationCenter::defaultCenter().observe(
            playerSurfaceClicked, &context, [&clicked](QWindow *window) { clicked += window; });
        const auto presses = [&player] {
            return player.model().youtubeContent()
                ? player.videoValue("presses")
                : player.valueInPage(QStringLiteral("window.presses"));
        };
        player.click();
        QTRY_VERIFY(presses() == 1);
        QCOMPARE(clicked, QList<QWindow *>({ &player.window() }));
        player.doubleClick();
        QTRY_VERIFY(presses() == 3);
        QCOMPARE(clicked.size(), 3);
    }

    void theKeysWorkWhileThePageHasTheFocus_data() { eachService(); }
    void theKeysWorkWhileThePageHasTheFocus()
    {
        QFETCH(QString, address);
        PlayerWindow player;
        player.model().installKeyboardShortcuts();
        player.open(address);
        QTRY_VERIFY(player.plays());
        player.click();
        QTRY_VERIFY(player.webView()->hasActiveFocus());
        player.press(QStringLiteral("space"));
        QTRY_VERIFY(player.videoValue("paused") == true);
        QVERIFY(!player.model().isPlaying());
        const double position = player.videoValue("currentTime").toDouble();
        player.press(QStringLiteral("Right"));
        QTRY_VERIFY(player.videoValue("currentTime").toDouble() >= position + 5);
        player.press(QStringLiteral("Down"));
        QTRY_VERIFY(player.videoValue("volume") == 0.95);
        player.press(QStringLiteral("space"));
        QTRY_VERIFY(player.videoValue("paused") == false);
        player.press(QStringLiteral("ctrl+k"));
        QTRY_VERIFY(!player.playerView());
    }

    void aTextFieldInThePageKeepsItsKeys()
    {
        m_services.ok().serve(okPage,
            "<!doctype html><style>html, body, input { width: 100%; height: 100%; }</style>"
            "<input><video></video>",
            "text/html");
        PlayerWindow player;
        player.model().installKeyboardShortcuts();
        player.open(okVideo);
        // A page takes no clicks before it is drawn for the first time.
        QTRY_VERIFY(
            (player.click(), player.valueInPage(QStringLiteral("document.activeElement.localName")))
            == QStringLiteral("input"));
        QTRY_VERIFY(QGuiApplication::focusObject()
            && QInputMethod::queryFocusObject(Qt::ImEnabled, {}).toBool());
        player.press(QStringLiteral("a"));
        player.press(QStringLiteral("space"));
        player.press(QStringLiteral("b"));
        QTRY_VERIFY(player.valueInPage(QStringLiteral("document.querySelector('input').value"))
            == QStringLiteral("a b"));
        QVERIFY(player.model().isPlaying());
    }

    void thePageFillsTheScreen()
    {
        PlayerWindow player;
        player.open(video);
        QTRY_VERIFY(player.plays());
        player.click();
        QTRY_VERIFY(player.videoValue("presses") == 1);
        player.press(QStringLiteral("f"));
        QTRY_VERIFY(player.window().visibility() == QWindow::FullScreen);
        QTRY_VERIFY(player.videoValue("fillsScreen") == true);
        player.press(QStringLiteral("g"));
        QTRY_VERIFY(player.window().visibility() == QWindow::Windowed);
        QTRY_VERIFY(player.videoValue("fillsScreen") == false);

        player.press(QStringLiteral("f"));
        QTRY_VERIFY(player.videoValue("fillsScreen") == true);
        player.window().showNormal();
        QTRY_VERIFY(player.videoValue("fillsScreen") == false);
        QTRY_VERIFY(player.window().visibility() == QWindow::Windowed);
    }
};

ZEPH_WEB_TEST_MAIN(WebPlayersTest)
#include "tst_web_players.moc"
