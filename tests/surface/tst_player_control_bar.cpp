// What the control bar shows and does, over the real engine.
#include "player/PlayerModel.h"
#include "support/EngineTest.h"
#include "support/LiveStream.h"
#include "support/StandInPanels.h"
#include "support/TestServer.h"
#include "surface/PlayerControlBar.h"
#include "surface/PlayerSurfaceNotices.h"
#include "surface/TimeText.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <limits>

using namespace zeph;

namespace {

struct Bar {
    StandInPanels panels;
    PlayerModel model { panels };
    PlayerControlBar bar { model };

    /// Plays the clip until it is known how long it is, and holds it there.
    bool open(const QUrl &url)
    {
        model.play(url, {}, false);
        if (!QTest::qWaitFor([this] { return model.duration() > 0; }, patience))
            return false;
        model.togglePlayback();
        return !model.isPlaying();
    }
};

} // namespace

class PlayerControlBarTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void times_data()
    {
        constexpr double infinity = std::numeric_limits<double>::infinity();
        QTest::addColumn<double>("seconds");
        QTest::addColumn<QString>("text");
        QTest::newRow("nothing") << 0.0 << QStringLiteral("00:00");
        QTest::newRow("infinite") << infinity << QStringLiteral("00:00");
        QTest::newRow("minus infinite") << -infinity << QStringLiteral("00:00");
        QTest::newRow("not a number")
            << std::numeric_limits<double>::quiet_NaN() << QStringLiteral("00:00");
        QTest::newRow("rounded down") << 59.9 << QStringLiteral("00:59");
        QTest::newRow("an hour") << 3600.0 << QStringLiteral("60:00");
        QTest::newRow("no hours") << 3725.0 << QStringLiteral("62:05");
        QTest::newRow("negative") << -5.0 << QStringLiteral("00:-5");
        QTest::newRow("negative minutes") << -65.0 << QStringLiteral("-1:-5");
        QTest::newRow("many minutes") << 6000.0 << QStringLiteral("100:00");
        QTest::newRow("more than a number of seconds can be")
            << 1e300 << QStringLiteral("16666666666666:40");
    }
    void times()
    {
        QFETCH(double, seconds);
        QFETCH(QString, text);
        QCOMPARE(time(seconds), text);
    }

    void withNothingLoaded()
    {
        Bar test;
        QCOMPARE(test.bar.playSymbol(), QStringLiteral("play.fill"));
        QCOMPARE(test.bar.playHelp(), QStringLiteral("Play"));
        QCOMPARE(test.bar.muteSymbol(), QStringLiteral("speaker.wave.2.fill"));
        QCOMPARE(test.bar.elapsedTime(), QStringLiteral("00:00"));
        QCOMPARE(test.bar.remainingTime(), QStringLiteral("−00:00"));
        QVERIFY(!test.bar.seeking());
        QCOMPARE(test.bar.seekPosition(), 0.0);
        QCOMPARE(test.bar.seekRange(), 1.0);
        QVERIFY(!test.bar.showSidebar());
        QCOMPARE(test.bar.portraitMode(), PortraitDisplayMode::Normal);
    }

    void followsTheModel()
    {
        Bar test;
        QSignalSpy played(&test.bar, &PlayerControlBar::playChanged);
        test.model.play(shortClip(), {}, false);
        QVERIFY(!played.isEmpty());
        QCOMPARE(test.bar.playSymbol(), QStringLiteral("pause.fill"));
        QCOMPARE(test.bar.playHelp(), QStringLiteral("Pause"));

        QSignalSpy muted(&test.bar, &PlayerControlBar::muteChanged);
        test.model.toggleMute();
        QCOMPARE(muted.size(), 1);
        QCOMPARE(test.bar.muteSymbol(), QStringLiteral("speaker.slash.fill"));

        QTRY_VERIFY(test.bar.seekRange() == test.model.duration() && test.model.duration() > 1);
        QTRY_VERIFY(test.bar.elapsedTime() == QStringLiteral("00:02"));
        QCOMPARE(test.bar.remainingTime(), QStringLiteral("−00:00"));
    }

    void aDragSeeksOnlyWhereItEnds()
    {
        Bar test;
        QVERIFY(test.open(longClip()));
        test.model.player()->seek(2.5);
        QTRY_VERIFY(test.model.currentTime() == 2.5);
        QList<double> times;
        test.model.player()->addPeriodicTimeObserver([&](double at) { times << at; });

        test.bar.setSeeking(true);
        for (const double position : { 5.0, 12.0, 20.5 }) {
            test.bar.moveSeekSlider(position);
            QCoreApplication::processEvents(); // A seek would be told of.
            QCOMPARE(test.bar.seekPosition(), position);
            QCOMPARE(test.bar.elapsedTime(), QStringLiteral("00:02"));
        }

        test.bar.setSeeking(false);
        QTRY_VERIFY(test.model.currentTime() == 20.5);
        QCOMPARE(test.bar.elapsedTime(), QStringLiteral("00:20"));
        QCOMPARE(test.bar.seekPosition(), 20.5);
        for (const double at : std::as_const(times))
            QVERIFY2(at < 3 || at == 20.5, qPrintable(QString::number(at)));
    }

    void whatHasNoEndHasNothingLeft()
    {
        const QTemporaryDir folder;
        const LiveStream stream(LiveStream::hls(folder.path()));
        const TestServer server(folder.path());
        QTRY_VERIFY(QFile::exists(folder.filePath(QStringLiteral("live2.ts"))));
        Bar test;
        test.model.play(server.url(QStringLiteral("/live.m3u8")), {}, true);
        QTRY_VERIFY(test.model.currentTime() >= 1);
        QCOMPARE(test.model.duration(), 0.0);
        QCOMPARE(test.bar.remainingTime(), QStringLiteral("−00:00"));
    }

    void theElapsedTimeGoesOnDuringADrag()
    {
        Bar test;
        test.model.play(longClip(), {}, false);
        QTRY_VERIFY(test.model.duration() > 0);
        test.bar.setSeeking(true);
        test.bar.moveSeekSlider(25);
        QTRY_VERIFY(test.bar.elapsedTime() == QStringLiteral("00:02"));
        QCOMPARE(test.bar.seekPosition(), 25.0);
    }

    void theSlidersBeingPushedByTheModelSeeksNowhere()
    {
        Bar test;
        test.model.play(shortClip(), {}, false);
        QTRY_VERIFY(test.model.duration() > 0 && !test.model.isPlaying());
        test.bar.moveSeekSlider(test.bar.seekPosition());
        // After a seek to the end there would be nothing left to play.
        test.model.togglePlayback();
        QTRY_VERIFY(test.model.isPlaying() && test.model.currentTime() < 1);
    }

    void aScreenReaderSeeksAtOnce()
    {
        Bar test;
        QVERIFY(test.open(longClip()));
        test.bar.moveSeekSlider(20);
        QTRY_VERIFY(test.model.currentTime() == 20);
    }

    void theVolumeIsTheModels()
    {
        Bar test;
        test.bar.setVolume(0.4);
        QCOMPARE(test.model.volume(), 0.4);
        test.model.toggleMute();
        test.bar.setVolume(0.4); // It stands where it is: no reason to be heard again.
        QVERIFY(test.model.isMuted());
        test.bar.setVolume(0.5);
        QVERIFY(!test.model.isMuted());
    }

    void displayModes()
    {
        Bar test;
        QStringList titles;
        QStringList symbols;
        QStringList labelSymbols;
        for (const DisplayModeItem &item : test.bar.displayModes()) {
            titles << item.title;
            symbols << item.symbol;
            test.bar.setPortraitMode(item.mode);
            labelSymbols << test.bar.displayModeSymbol();
        }
        QCOMPARE(titles,
            (QStringList { QStringLiteral("Normal"), QStringLiteral("Portrait Fill"),
                QStringLiteral("Portrait Rotate 90°"), QStringLiteral("Manual Reframe"),
                QStringLiteral("Smart Reframe") }));
        QCOMPARE(symbols,
            (QStringList { QStringLiteral("rectangle"), QStringLiteral("rectangle.portrait.fill"),
                QStringLiteral("rotate.right"), QStringLiteral("hand.draw"),
                QStringLiteral("viewfinder") }));
        symbols[0] = QStringLiteral("rectangle.portrait");
        QCOMPARE(labelSymbols, symbols);
    }

    void portraitModesHideTheSidebar()
    {
        Bar test;
        using Mode = PortraitDisplayMode;
        for (const Mode mode : { Mode::Fill, Mode::Rotate, Mode::Manual, Mode::Smart }) {
            test.bar.toggleSidebar();
            QVERIFY(test.bar.showSidebar());
            QCOMPARE(test.bar.sidebarAnimation(), std::chrono::milliseconds(180));
            test.bar.selectDisplayMode(mode);
            QCOMPARE(test.bar.portraitMode(), mode);
            QVERIFY(!test.bar.showSidebar());
            QCOMPARE(test.bar.sidebarAnimation(), std::chrono::milliseconds(160));
        }
    }

    void theNormalModeLeavesTheSidebar()
    {
        Bar test;
        test.bar.selectDisplayMode(PortraitDisplayMode::Fill);
        test.bar.selectDisplayMode(PortraitDisplayMode::Normal);
        QVERIFY(!test.bar.showSidebar());
        test.bar.toggleSidebar();
        test.bar.selectDisplayMode(PortraitDisplayMode::Normal);
        QVERIFY(test.bar.showSidebar());
    }

    void withoutAWindowThereIsNoFullScreen()
    {
        Bar test;
        test.bar.toggleFullScreen();
    }

    void theSurfaceInvitesWhileItIsEmpty()
    {
        Bar test;
        PlayerSurfaceNotices notices;
        QVERIFY(!notices.invitesToOpen());
        notices.setModel(&test.model);
        QVERIFY(notices.invitesToOpen());
        test.model.play(missingClip(), {}, false);
        QVERIFY(!notices.invitesToOpen());
        test.model.stop();
        QVERIFY(notices.invitesToOpen());
        test.model.show(OKVideoContent { QStringLiteral("1") }, QString());
        QVERIFY(!notices.invitesToOpen());
        test.model.stop();
        QVERIFY(notices.invitesToOpen());
        test.model.show(
            *YouTubeContent::fromUrl(QUrl(QStringLiteral("https://youtu.be/dQw4w9WgXcQ"))),
            QString());
        QVERIFY(!notices.invitesToOpen());
    }

    void onlyALiveStreamTellsOfBuffering()
    {
        Bar test;
        PlayerSurfaceNotices notices;
        QVERIFY(!notices.tellsOfBuffering());
        notices.setModel(&test.model);
        const QUrl nowhere(QStringLiteral("http://127.0.0.1:9/a.m3u8"));
        test.model.play(nowhere, {}, true);
        QVERIFY(!notices.tellsOfBuffering());
        QTRY_VERIFY(notices.tellsOfBuffering());
        bool tellsOfAnother = false;
        connect(&notices, &PlayerSurfaceNotices::changed, &notices,
            [&] { tellsOfAnother |= !test.model.isLiveStream() && notices.tellsOfBuffering(); });
        test.model.play(shortClip(), {}, false);
        QVERIFY(!notices.tellsOfBuffering());
        test.model.play(nowhere, {}, false);
        QTRY_VERIFY(test.model.player()->currentItem()->status() == MediaItem::Status::Failed);
        outwait(std::chrono::milliseconds(450));
        QVERIFY(!notices.tellsOfBuffering());
        QVERIFY(!tellsOfAnother);
    }
};

ZEPH_ENGINE_TEST_MAIN(PlayerControlBarTest)
#include "tst_player_control_bar.moc"
