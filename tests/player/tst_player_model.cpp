// The player model over the real engine and real files.
#include "player/PlayerModel.h"
#include "support/Patience.h"
#include "support/StandInPanels.h"

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <clocale>
#include <cmath>
#include <limits>

using namespace zeph;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
const QString nothingToPlay =
    QStringLiteral("No media or URL is available. Open a file or enter a stream URL.");

QUrl clip(const QString &name)
{
    return QUrl::fromLocalFile(qEnvironmentVariable("ZEPH_CLIPS") + u'/' + name);
}

bool isPaused(PlayerModel &model)
{
    return model.player()->timeControlStatus() == MediaPlayer::TimeControlStatus::Paused;
}

} // namespace

class PlayerModelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { std::setlocale(LC_NUMERIC, "C"); }

    void initialValues()
    {
        PlayerModel model(m_panels);
        QCOMPARE(model.title(), QStringLiteral("Zeph Player"));
        QCOMPARE(model.errorMessage(), QString());
        QVERIFY(!model.isLoading());
        QVERIFY(model.playlist().isEmpty());
        QVERIFY(!model.isPlaying());
        QCOMPARE(model.currentTime(), 0.0);
        QCOMPARE(model.duration(), 0.0);
        QCOMPARE(model.volume(), 1.0);
        QVERIFY(!model.isMuted());
        QCOMPARE(model.videoAspectRatio(), 0.0);
        QVERIFY(!model.mediaLoadID().isNull());
        QVERIFY(model.videoAspectMediaLoadID().isNull());
        QVERIFY(!model.isLiveStream());
        QVERIFY(!model.isBuffering());
        QVERIFY(!model.youtubeContent());
        QVERIFY(!model.okVideoContent());
        QCOMPARE(model.toastMessage(), QString());
        QCOMPARE(model.currentURL(), QUrl());
        QVERIFY(PlayerModel(m_panels).mediaLoadID() != model.mediaLoadID());
    }

    void playsAFileToItsEnd()
    {
        PlayerModel model(m_panels);
        const QUuid before = model.mediaLoadID();
        model.play(clip(QStringLiteral("colours.mp4")), std::nullopt, false);
        QVERIFY(model.isPlaying());
        QCOMPARE(model.currentURL(), clip(QStringLiteral("colours.mp4")));
        QVERIFY(model.mediaLoadID() != before);
        QCOMPARE(model.title(), QStringLiteral("colours.mp4"));
        QCOMPARE(model.videoAspectRatio(), 0.0);
        QVERIFY(model.videoAspectMediaLoadID().isNull());

        QTRY_COMPARE(model.duration(), 4.0);
        QTRY_VERIFY(model.currentTime() > 0.4);
        QCOMPARE(model.videoAspectRatio(), 320.0 / 180);
        QCOMPARE(model.videoAspectMediaLoadID(), model.mediaLoadID());

        QTRY_VERIFY(!model.isPlaying());
        QCOMPARE(model.currentTime(), 4.0);
        model.togglePlayback();
        QVERIFY(model.isPlaying());
        QTRY_VERIFY(model.currentTime() < 3);
    }

    void aNewLoadForgetsTheAspectRatio()
    {
        PlayerModel model(m_panels);
        model.play(clip(QStringLiteral("colours.mp4")), std::nullopt, false);
        QTRY_COMPARE(model.videoAspectMediaLoadID(), model.mediaLoadID());
        model.play(clip(QStringLiteral("colours-rotated.mp4")), std::nullopt, false);
        QCOMPARE(model.videoAspectRatio(), 0.0);
        QTRY_COMPARE(model.videoAspectMediaLoadID(), model.mediaLoadID());
        QCOMPARE(model.videoAspectRatio(), 180.0 / 320);
    }

    void titleFromAddress_data()
    {
        QTest::addColumn<QString>("address");
        QTest::addColumn<QString>("title");
        QTest::newRow("plain") << "http://127.0.0.1:9/a/b.mp4"
                               << "b.mp4";
        QTest::newRow("escapes") << "http://127.0.0.1:9/My%20Clip%20%C3%A9.mp4"
                                 << "My Clip é.mp4";
        QTest::newRow("query") << "http://127.0.0.1:9/live.m3u8?a=b"
                               << "live.m3u8";
        QTest::newRow("not text") << "http://127.0.0.1:9/%FF%FE.mp4"
                                  << "http://127.0.0.1:9/%FF%FE.mp4";
        QTest::newRow("slash at the end") << "http://127.0.0.1:9/a/"
                                          << "a";
        QTest::newRow("no path") << "http://127.0.0.1:9/"
                                 << "http://127.0.0.1:9/";
    }

    void titleFromAddress()
    {
        QFETCH(QString, address);
        QFETCH(QString, title);
        PlayerModel model(m_panels);
        model.play(QUrl(address), std::nullopt, false);
        QCOMPARE(model.title(), title);
        model.play(QUrl(address), QStringLiteral("A name"), false);
        QCOMPARE(model.title(), QStringLiteral("A name"));
    }

    void stopThenToggleReplays()
    {
        PlayerModel model(m_panels);
        model.play(clip(QStringLiteral("colours.mp4")), QStringLiteral("Colours"), false);
        QTRY_VERIFY(model.currentTime() > 0.2);
        const QUuid load = model.mediaLoadID();

        model.stop();
        QVERIFY(!model.isPlaying());
        QVERIFY(!model.player()->currentItem());
        QCOMPARE(model.currentTime(), 0.0);
        QCOMPARE(model.duration(), 0.0);
        QCOMPARE(model.videoAspectRatio(), 0.0);
        QVERIFY(model.videoAspectMediaLoadID().isNull());
        QCOMPARE(model.title(), QStringLiteral("Zeph Player"));
        QCOMPARE(model.currentURL(), QUrl());
        QCOMPARE(model.mediaLoadID(), load);

        model.togglePlayback();
        QCOMPARE(model.title(), QStringLiteral("Colours"));
        QVERIFY(model.isPlaying());
        QVERIFY(model.mediaLoadID() != load);
        QTRY_VERIFY(model.currentTime() > 0.2);
    }

    void togglePausesAndGoesOn()
    {
        PlayerModel model(m_panels);
        model.play(clip(QStringLiteral("numbered-25.mp4")), std::nullopt, false);
        QTRY_VERIFY(model.currentTime() > 0.4);
        model.togglePlayback();
        QVERIFY(!model.isPlaying());
        QVERIFY(isPaused(model));
        const double paused = model.currentTime();
        model.togglePlayback();
        QVERIFY(model.isPlaying());
        QTRY_VERIFY(model.currentTime() > paused + 0.4);
    }

    void toggleWithNothingShowsAToast()
    {
        PlayerModel model(m_panels);
        model.togglePlayback();
        QVERIFY(!model.isPlaying());
        QCOMPARE(model.toastMessage(), nothingToPlay);
        QTRY_COMPARE(model.toastMessage(), QString());
    }

    void aNewToastReplacesTheOldOne()
    {
        PlayerModel model(m_panels);
        QSignalSpy changed(&model, &PlayerModel::toastMessageChanged);
        model.showToast(QStringLiteral("first"), 300'000'000);
        model.showToast(QStringLiteral("second"), 900'000'000);
        QCOMPARE(model.toastMessage(), QStringLiteral("second"));
        QElapsedTimer shown;
        shown.start();
        QTRY_COMPARE(model.toastMessage(), QString());
        QVERIFY2(shown.elapsed() >= 890, "the first toast's time ended the second");
        QCOMPARE(changed.size(), 3);
    }

    void volume_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<double>("volume");
        QTest::addColumn<bool>("muted");
        QTest::newRow("above") << 1.7 << 1.0 << false;
        QTest::newRow("below") << -0.2 << 0.0 << true;
        QTest::newRow("zero") << 0.0 << 0.0 << true;
        QTest::newRow("negative zero") << -0.0 << 0.0 << true;
        QTest::newRow("within") << 0.25 << 0.25 << false;
        QTest::newRow("infinite") << infinity << 1.0 << false;
        QTest::newRow("negatively infinite") << -infinity << 0.0 << true;
        QTest::newRow("not a number") << notANumber << 1.0 << false;
    }

    void volume()
    {
        QFETCH(double, value);
        PlayerModel model(m_panels);
        model.setVolume(value);
        QTEST(model.volume(), "volume");
        QTEST(model.isMuted(), "muted");
        QVERIFY(!std::signbit(model.volume()));
        QCOMPARE(model.player()->volume(), model.volume());
        QCOMPARE(model.player()->isMuted(), model.isMuted());
    }

    void raisingTheVolumeUnmutes()
    {
        PlayerModel model(m_panels);
        model.toggleMute();
        QVERIFY(model.isMuted());
        QVERIFY(model.player()->isMuted());
        model.setVolume(0.5);
        QVERIFY(!model.isMuted());
        QVERIFY(!model.player()->isMuted());
    }

    void volumeAndMuteOutliveAPage()
    {
        PlayerModel model(m_panels);
        model.show(OKVideoContent { QStringLiteral("123") }, QStringLiteral("A video"));
        model.setVolume(0.5);
        model.toggleMute();
        QCOMPARE(model.player()->volume(), 1.0);
        model.play(clip(QStringLiteral("numbered-25.mp4")), std::nullopt, false);
        QCOMPARE(model.player()->volume(), 0.5);
        QVERIFY(model.player()->isMuted());
    }

    void skipIsLimitedToTheItem()
    {
        PlayerModel model(m_panels);
        model.play(clip(QStringLiteral("numbered-25.mp4")), std::nullopt, false);
        QTRY_COMPARE(model.duration(), 20.0);
        model.togglePlayback();
        model.skip(5);
        QTRY_VERIFY(model.currentTime() >= 4.9);
        model.skip(-60);
        QTRY_COMPARE(model.currentTime(), 0.0);
        model.skip(notANumber);
        QCOMPARE(model.currentTime(), 0.0);
        model.skip(1e300);
        QTRY_COMPARE(model.currentTime(), 20.0);
        model.skip(-infinity);
        QCoreApplication::processEvents();
        QCOMPARE(model.currentTime(), 20.0);
    }

    void openFileAsksForMedia()
    {
        PlayerModel model(m_panels);
        m_panels.shown.clear();
        m_panels.answer = std::nullopt;
        model.openFile();
        QCOMPARE(m_panels.shown.size(), 1);
        QCOMPARE(m_panels.shown[0].title, QStringLiteral("Choose Media to Play"));
        QCOMPARE(m_panels.shown[0].extensions.size(), 18);
        QVERIFY(m_panels.shown[0].extensions.contains(QStringLiteral("m2ts")));
        QVERIFY(!model.isPlaying());
        QVERIFY(!model.player()->currentItem());

        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("A film, 100%25 ©.mp4"));
        QVERIFY(QFile::copy(clip(QStringLiteral("colours.mp4")).toLocalFile(), path));
        m_panels.answer = QUrl::fromLocalFile(path);
        model.openFile();
        QCOMPARE(model.title(), QStringLiteral("A film, 100%25 ©.mp4"));
        QVERIFY(!model.isLiveStream());
        QTRY_VERIFY(model.currentTime() > 0.2);
    }

    void onlyALiveStreamIsRenamed()
    {
        PlayerModel model(m_panels);
        model.play(clip(QStringLiteral("colours.mp4")), QStringLiteral("A file"), false);
        model.updateStreamTitle(QStringLiteral("   "));
        QCOMPARE(model.title(), QStringLiteral("A file"));
        model.play(clip(QStringLiteral("colours.mp4")), QStringLiteral("A channel"), true);
        model.updateStreamTitle(QStringLiteral(" News \n"));
        QCOMPARE(model.title(), QStringLiteral("News"));
        model.updateStreamTitle(QStringLiteral("   "));
        QCOMPARE(model.title(), QStringLiteral("Zeph Player"));
    }

    void anItemThatFailsLeavesTheModelPlaying()
    {
        PlayerModel model(m_panels);
        model.play(QUrl::fromLocalFile(QStringLiteral("/nowhere/at all.mp4")), std::nullopt, false);
        QTRY_COMPARE(model.player()->currentItem()->status(), MediaItem::Status::Failed);
        QCoreApplication::processEvents();
        QVERIFY(model.isPlaying());
        QCOMPARE(model.errorMessage(), QString());
        QCOMPARE(model.duration(), 0.0);
        QVERIFY(!model.isBuffering());
    }

    void aFileNeverShowsTheBufferingIndicator()
    {
        PlayerModel model(m_panels);
        QSignalSpy buffering(&model, &PlayerModel::isBufferingChanged);
        model.play(QUrl::fromLocalFile(QStringLiteral("/nowhere/at all.mp4")), std::nullopt, false);
        QVERIFY(!buffering.wait(1000));
    }

    void aLiveStreamThatDoesNotStartShowsIt()
    {
        PlayerModel model(m_panels);
        model.play(QUrl::fromLocalFile(QStringLiteral("/nowhere/at all.m3u8")), std::nullopt, true);
        QVERIFY(!model.isBuffering());
        QTRY_VERIFY(model.isBuffering());
        model.stop();
        QVERIFY(!model.isBuffering());
    }

    void badAddresses_data()
    {
        QTest::addColumn<QUrl>("url");
        QTest::newRow("empty") << QUrl();
        QTest::newRow("invalid") << QUrl(QStringLiteral("http://["));
        QTest::newRow("relative") << QUrl(QStringLiteral("a.mp4"));
        QTest::newRow("huge") << QUrl(
            QStringLiteral("http://127.0.0.1:9/") + QString(1'000'000, u'x'));
        QTest::newRow("odd Unicode")
            << QUrl::fromLocalFile(QStringLiteral("/\u202E\u200B\u0301\uFFFF") + QChar(0xD800));
        QTest::newRow("unknown scheme") << QUrl(QStringLiteral("edl://x"));
        QTest::newRow("folder") << QUrl::fromLocalFile(QStringLiteral("/tmp"));
    }

    void badAddresses()
    {
        QFETCH(QUrl, url);
        PlayerModel model(m_panels);
        model.play(url, std::nullopt, false);
        QTRY_COMPARE(model.player()->currentItem()->status(), MediaItem::Status::Failed);
        QVERIFY(!model.player()->currentItem()->errorText().isEmpty());
        QVERIFY(model.isPlaying());
        model.togglePlayback();
        QVERIFY(!model.isPlaying());
    }

    // Whatever is asked of it in whatever order, the model keeps its promises and goes on working.
    void randomCommands()
    {
        PlayerModel model(m_panels);
        m_panels.answer = std::nullopt;
        QRandomGenerator random(5);
        const QStringList clips { QStringLiteral("colours.mp4"), QStringLiteral("numbered-60.ts"),
            QStringLiteral("missing.mp4") };
        for (int i = 0; i < 400; ++i) {
            switch (random.bounded(9)) {
            case 0:
                model.play(clip(clips[random.bounded(3)]), std::nullopt, random.bounded(2) == 0);
                break;
            case 1:
                model.stop();
                break;
            case 2:
                model.togglePlayback();
                break;
            case 3:
                model.skip((random.generateDouble() - 0.5) * 20);
                break;
            case 4:
                model.toggleMute();
                break;
            case 5:
                model.setVolume(random.generateDouble() * 3 - 1);
                break;
            case 6:
                model.openFile();
                break;
            case 7:
                model.show(OKVideoContent { QStringLiteral("1") }, QString());
                break;
            default:
                QTest::qWait(random.bounded(20));
            }
            QVERIFY(model.volume() >= 0 && model.volume() <= 1);
            QVERIFY(model.currentTime() >= 0);
            QVERIFY(!model.okVideoContent() || !model.player()->currentItem());
        }
        model.play(clip(QStringLiteral("colours.mp4")), std::nullopt, false);
        QTRY_VERIFY(model.currentTime() > 0.2 && model.duration() == 4.0);
    }

private:
    StandInPanels m_panels;
};

QTEST_GUILESS_MAIN(PlayerModelTest)
#include "tst_player_model.moc"
