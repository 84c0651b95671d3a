// Our page, without a browser: its scripts run in Qt's engine, with a player that records.
#include "sources/web/YouTubePage.h"

#include <QJSEngine>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTest>

using namespace zeph;

namespace {

const QString video = QStringLiteral("abc");
const QString playlist = QStringLiteral("PLx");
const PageMessages messages(QStringLiteral("key"));

constexpr auto standIns = R"(
var said = [];
var console = { info: function (text) { said.push(text); } };
var calls = [];
var position = 100;
var state = 1;
var options = null;
var YT = {
    PlayerState: { PLAYING: 1 },
    Player: function (id, given) {
        options = given;
        options.id = id;
        this.getPlayerState = function () { return state; };
        this.getCurrentTime = function () { return position; };
        var player = this;
        ['playVideo', 'pauseVideo', 'seekTo', 'mute', 'unMute', 'setVolume'].forEach(function (name) {
            player[name] = function () {
                calls.push(name + '(' + Array.prototype.slice.call(arguments).join(',') + ')');
            };
        });
    }
};)";

/// A page whose inline script has run.
class Page {
public:
    explicit Page(const YouTubeContent &content) : m_html(youTubePage(content, messages))
    {
        m_engine.evaluate(QLatin1StringView(standIns));
        evaluate(inlineScript());
    }

    const QString &html() const { return m_html; }

    QString inlineScript() const
    {
        static const QRegularExpression element(QStringLiteral("<script>(.*?)</script>"),
            QRegularExpression::DotMatchesEverythingOption);
        return element.match(m_html).captured(1);
    }

    QJSValue evaluate(const QString &script)
    {
        QJSValue value = m_engine.evaluate(script);
        if (value.isError())
            qWarning("%s", qPrintable(value.toString()));
        return value;
    }

    QString json(const QString &expression)
    {
        return evaluate(QStringLiteral("JSON.stringify(%1)").arg(expression)).toString();
    }

    /// The calls of the player since the last time.
    QStringList calls()
    {
        return evaluate(QStringLiteral("calls.splice(0)")).toVariant().toStringList();
    }

private:
    QString m_html;
    QJSEngine m_engine;
};

} // namespace

class YouTubePageTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void head()
    {
        const QString html = youTubePage({ video, {} }, messages);
        QVERIFY(html.startsWith(QStringLiteral("<!doctype html>")));
        QVERIFY(html.contains(QStringLiteral(
            "<meta name=\"referrer\" content=\"strict-origin-when-cross-origin\">")));
        QVERIFY(html.contains(QStringLiteral(
            "html, body, #player { margin: 0; width: 100%; height: 100%; overflow: hidden; "
            "background: #000; }")));
        QVERIFY(html.contains(QStringLiteral("iframe { width: 100%; height: 100%; border: 0; }")));
        QVERIFY(html.contains(QStringLiteral(
            "<meta name=\"viewport\" content=\"width=device-width,initial-scale=1\">")));
    }

    void loadsTheServicesScriptBeforeItsOwn()
    {
        const QString html = youTubePage({ video, {} }, messages);
        const auto place = html.indexOf(QStringLiteral("<div id=\"player\"></div>"));
        const auto script =
            html.indexOf(QStringLiteral("<script src=\"https://www.youtube.com/iframe_api\""));
        QVERIFY(place > 0);
        QVERIFY(script > place);
        QVERIFY(html.indexOf(QStringLiteral("<script>")) > script);
    }

    void aVideo()
    {
        Page page({ video, {} });
        page.evaluate(QStringLiteral("onYouTubeIframeAPIReady()"));
        QCOMPARE(page.json(QStringLiteral("options")),
            QStringLiteral("{\"width\":\"100%\",\"height\":\"100%\",\"playerVars\":{"
                           "\"autoplay\":1,\"controls\":1,\"playsinline\":1,\"rel\":0,"
                           "\"enablejsapi\":1,\"origin\":\"https://zephplayer.example\"},"
                           "\"events\":{},\"videoId\":\"abc\",\"id\":\"player\"}"));
    }

    void aPlaylist()
    {
        Page page({ {}, playlist });
        QVERIFY(page.html().contains(QStringLiteral("var videoID = null;")));
        QVERIFY(page.html().contains(QStringLiteral("var playlistID = \"PLx\";")));
        page.evaluate(QStringLiteral("onYouTubeIframeAPIReady()"));
        QCOMPARE(page.json(QStringLiteral("options.playerVars.listType")),
            QStringLiteral("\"playlist\""));
        QCOMPARE(page.json(QStringLiteral("options.playerVars.list")), QStringLiteral("\"PLx\""));
        QCOMPARE(page.json(QStringLiteral("'videoId' in options")), QStringLiteral("false"));
    }

    void aVideoInAPlaylist()
    {
        Page page({ video, playlist });
        page.evaluate(QStringLiteral("onYouTubeIframeAPIReady()"));
        QCOMPARE(page.json(QStringLiteral("options.playerVars.list")), QStringLiteral("\"PLx\""));
        QCOMPARE(page.json(QStringLiteral("options.videoId")), QStringLiteral("\"abc\""));
    }

    void playsAndTellsWhenItIsReady()
    {
        Page page({ video, {} });
        page.evaluate(QStringLiteral("onYouTubeIframeAPIReady()"));
        QCOMPARE(page.json(QStringLiteral("said")), QStringLiteral("[\"zeph:script-runs key\"]"));
        QCOMPARE(page.calls(), QStringList());
        page.evaluate(QStringLiteral("options.events.onReady({ target: player })"));
        QCOMPARE(page.calls(), QStringList(QStringLiteral("playVideo()")));
        QCOMPARE(page.json(QStringLiteral("said")),
            QStringLiteral("[\"zeph:script-runs key\",\"zeph:ready key\"]"));
    }

    void functions_data()
    {
        QTest::addColumn<QString>("script");
        QTest::addColumn<QStringList>("calls");

        const auto row = [](const char *name, const char *script, const QStringList &calls) {
            QTest::newRow(name) << QString::fromLatin1(script) << calls;
        };
        row("toggle while playing", "state = 1; zephToggle();", { QStringLiteral("pauseVideo()") });
        row("toggle while paused", "state = 2; zephToggle();", { QStringLiteral("playVideo()") });
        row("toggle while buffering", "state = 3; zephToggle();",
            { QStringLiteral("playVideo()") });
        row("skip", "zephSkip(10.0);", { QStringLiteral("seekTo(110,true)") });
        row("skip back", "zephSkip(-20.0);", { QStringLiteral("seekTo(80,true)") });
        row("skip back past the start", "zephSkip(-300.0);", { QStringLiteral("seekTo(0,true)") });
        row("volume", "zephSetVolume(0.35);",
            { QStringLiteral("unMute()"), QStringLiteral("setVolume(35)") });
        row("rounded volume", "zephSetVolume(0.296);",
            { QStringLiteral("unMute()"), QStringLiteral("setVolume(30)") });
        row("mute", "zephSetMuted(true);", { QStringLiteral("mute()") });
        row("unmute", "zephSetMuted(false);", { QStringLiteral("unMute()") });
    }
    void functions()
    {
        QFETCH(QString, script);
        QFETCH(QStringList, calls);
        Page page({ video, {} });
        page.evaluate(QStringLiteral("onYouTubeIframeAPIReady()"));
        page.evaluate(script);
        QCOMPARE(page.calls(), calls);
    }

    void functionsDoNothingWithoutAPlayer()
    {
        Page page({ video, {} });
        page.evaluate(
            QStringLiteral("zephToggle(); zephSkip(5.0); zephSetVolume(0.5); zephSetMuted(true);"));
        QCOMPARE(page.calls(), QStringList());
    }

    void functionsDoNothingWithAPlayerThatIsNotComplete()
    {
        Page page({ video, {} });
        page.evaluate(QStringLiteral("player = {}; zephToggle(); zephSkip(5.0);"));
        QCOMPARE(page.calls(), QStringList());
    }
};

QTEST_GUILESS_MAIN(YouTubePageTest)
#include "tst_youtube_page.moc"
