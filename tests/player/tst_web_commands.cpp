// The scripts that the model sends to the web players.
#include "player/PlayerModel.h"
#include "RecordingPage.h"
#include "sources/WebPlayerRegistry.h"
#include "support/Patience.h"
#include "support/StandInPanels.h"

#include <QSignalSpy>

#include <clocale>
#include <limits>

using namespace zeph;

namespace {

const YouTubeContent youtube { QStringLiteral("abc"), std::nullopt };
const OKVideoContent okVideo { QStringLiteral("123") };

} // namespace

class WebCommandsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { std::setlocale(LC_NUMERIC, "C"); }

    void init()
    {
        YouTubePlayerRegistry::shared().setWebView(&m_youtubePage);
        OKVideoPlayerRegistry::shared().setWebView(&m_okPage);
        m_youtubePage.scripts.clear();
        m_okPage.scripts.clear();
    }

    void youTube()
    {
        PlayerModel model(m_panels);
        model.show(youtube, QStringLiteral("A video"));
        QCOMPARE(model.title(), QStringLiteral("A video"));
        QVERIFY(model.isPlaying());
        QCOMPARE(model.youtubeContent(), youtube);
        QVERIFY(!model.okVideoContent());
        QVERIFY(!model.player()->currentItem());

        model.togglePlayback();
        QVERIFY(!model.isPlaying());
        model.togglePlayback();
        QVERIFY(model.isPlaying());
        model.skip(5);
        model.skip(-20);
        model.toggleMute();
        model.toggleMute();
        model.setVolume(0.35);
        QVERIFY2(m_youtubePage.scripts.isEmpty(), "scripts run later, never within the call");
        const QStringList expected {
            QStringLiteral("zephToggle();"),
            QStringLiteral("zephToggle();"),
            QStringLiteral("zephSkip(5.0);"),
            QStringLiteral("zephSkip(-20.0);"),
            QStringLiteral("zephSetMuted(true);"),
            QStringLiteral("zephSetMuted(false);"),
            QStringLiteral("zephSetVolume(0.35);"),
        };
        QTRY_COMPARE(m_youtubePage.scripts, expected);
        QVERIFY(m_okPage.scripts.isEmpty());
    }

    void okPage()
    {
        PlayerModel model(m_panels);
        model.show(youtube, QStringLiteral("Before"));
        model.show(okVideo, QStringLiteral("A video"));
        QVERIFY(!model.youtubeContent());
        QCOMPARE(model.okVideoContent(), okVideo);

        model.togglePlayback();
        model.skip(10);
        model.toggleMute();
        model.setVolume(1);
        const QString video = QStringLiteral("var v=document.querySelector('video'); if(v){%1}");
        const QStringList expected {
            video.arg(QStringLiteral("v.paused?v.play():v.pause();")),
            video.arg(QStringLiteral("v.currentTime=Math.max(0,v.currentTime+(10.0));")),
            video.arg(QStringLiteral("v.muted=true;")),
            video.arg(QStringLiteral("v.muted=false;v.volume=1.0;")),
        };
        QTRY_COMPARE(m_okPage.scripts, expected);
        QVERIFY(m_youtubePage.scripts.isEmpty());
    }

    void aNewPageIsBroughtUpToDate_data()
    {
        QTest::addColumn<bool>("isYouTube");
        QTest::addColumn<QStringList>("scripts");
        QTest::newRow("YouTube") << true
                                 << QStringList({ QStringLiteral("zephSetVolume(0.35);"),
                                        QStringLiteral("zephSetMuted(true);"),
                                        QStringLiteral("player.pauseVideo();") });
        const QString video = QStringLiteral("var v=document.querySelector('video'); if(v){%1}");
        QTest::newRow("OK") << false
                            << QStringList(
                                   { video.arg(QStringLiteral("v.muted=false;v.volume=0.35;")),
                                       video.arg(QStringLiteral("v.muted=true;")),
                                       video.arg(QStringLiteral("v.pause();")) });
    }
    void aNewPageIsBroughtUpToDate()
    {
        QFETCH(const bool, isYouTube);
        QFETCH(const QStringList, scripts);
        const auto registry = [=]() -> WebPlayerRegistry & {
            if (isYouTube)
                return YouTubePlayerRegistry::shared();
            return OKVideoPlayerRegistry::shared();
        };
        PlayerModel model(m_panels);
        if (isYouTube)
            model.show(youtube, QStringLiteral("A video"));
        else
            model.show(okVideo, QStringLiteral("A video"));
        // While it is loaded, there is none that takes commands.
        registry().setWebView(nullptr);
        model.setVolume(0.35);
        model.toggleMute();
        model.togglePlayback();
        QCoreApplication::processEvents();

        RecordingPage page;
        registry().setWebView(&page);
        Q_EMIT registry().pageReady();
        QTRY_COMPARE(page.scripts, scripts);
    }

    void aNewPagePlaysAsItIs()
    {
        PlayerModel model(m_panels);
        model.show(youtube, QStringLiteral("A video"));
        Q_EMIT YouTubePlayerRegistry::shared().pageReady();
        model.skip(5);
        QTRY_COMPARE(m_youtubePage.scripts, QStringList(QStringLiteral("zephSkip(5.0);")));
    }

    void aPausedPageThatIsOpenedAgainGoesOn()
    {
        PlayerModel model(m_panels);
        model.show(youtube, QStringLiteral("A video"));
        model.show(youtube, QStringLiteral("The same"));
        model.togglePlayback();
        model.show(youtube, QStringLiteral("And again"));
        QVERIFY(model.isPlaying());
        const QString toggle = QStringLiteral("zephToggle();");
        model.skip(5);
        QTRY_COMPARE(m_youtubePage.scripts,
            QStringList({ toggle, toggle, QStringLiteral("zephSkip(5.0);") }));
    }

    void stopLeavesNoSourceAndToggleReplaysIt()
    {
        PlayerModel model(m_panels);
        model.show(okVideo, QStringLiteral("A video"));
        const QUuid load = model.mediaLoadID();
        model.stop();
        QVERIFY(!model.okVideoContent());
        QVERIFY(!model.isPlaying());
        QCOMPARE(model.title(), QStringLiteral("Zeph Player"));

        model.togglePlayback();
        QCOMPARE(model.okVideoContent(), okVideo);
        QCOMPARE(model.title(), QStringLiteral("A video"));
        QVERIFY(model.isPlaying());
        QCOMPARE(model.mediaLoadID(), load);
        QVERIFY(m_okPage.scripts.isEmpty());
    }

    void withoutAPageCommandsGoNowhere()
    {
        YouTubePlayerRegistry::shared().setWebView(nullptr);
        PlayerModel model(m_panels);
        model.show(youtube, QStringLiteral("A video"));
        model.toggleMute();
        model.skip(5);
        QCoreApplication::processEvents();
        QVERIFY(m_youtubePage.scripts.isEmpty());
        QVERIFY(model.isMuted());
    }

    void badNumbersAreNotSent()
    {
        PlayerModel model(m_panels);
        model.show(youtube, QStringLiteral("A video"));
        model.skip(std::numeric_limits<double>::quiet_NaN());
        model.skip(std::numeric_limits<double>::infinity());
        model.setVolume(std::numeric_limits<double>::quiet_NaN());
        QCoreApplication::processEvents();
        QCOMPARE(m_youtubePage.scripts, QStringList());
        QCOMPARE(model.volume(), 1.0);
    }

    void contentIsSeenFromQml()
    {
        PlayerModel model(m_panels);
        QSignalSpy changed(&model, &PlayerModel::youtubeContentChanged);
        QVERIFY(!model.property("youtubeContent").isValid());
        model.show(youtube, QString());
        QCOMPARE(changed.size(), 1);
        QCOMPARE(model.property("youtubeContent").value<YouTubeContent>(), youtube);
    }

private:
    StandInPanels m_panels;
    RecordingPage m_youtubePage;
    RecordingPage m_okPage;
};

QTEST_GUILESS_MAIN(WebCommandsTest)
#include "tst_web_commands.moc"
