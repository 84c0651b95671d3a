// HLS streams, live and not, from a real server.
#include "support/EngineTest.h"
#include "support/LiveStream.h"
#include "support/Patience.h"
#include "support/TestServer.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <cmath>

using namespace zeph;
using Status = MediaPlayer::TimeControlStatus;

namespace {

const QString list = QStringLiteral("/live.m3u8");

// A live stream, and a server that offers it.
struct Station {
    Station() : stream(LiveStream::hls(folder.path())), server(folder.path()) { }

    // A list with enough in it to start from.
    bool isOnAir() const
    {
        return QTest::qWaitFor(
            [this] { return QFile::exists(folder.path() + QStringLiteral("/live2.ts")); },
            patience);
    }

    QUrl url() const { return server.url(list); }

    QTemporaryDir folder;
    LiveStream stream;
    TestServer server;
};

} // namespace

class TestHls : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void playsOnDemand();
    void failsWithoutSegments();
    void playsLive();
    void waitsForAStalledStation();
    void returnsToAServerThatWasAway();
    void pauseEndsReloading();
    void removalEndsReloading();
    void showsTheEndOfAStation();
};

void TestHls::playsOnDemand()
{
    const TestServer server(clipPath(QStringLiteral("hls")));
    MediaPlayer player;
    const MediaItem *item = open(player, server.url(QStringLiteral("/index.m3u8")));
    QCOMPARE(settledStatus(item), MediaItem::Status::ReadyToPlay);
    QVERIFY(!item->isLive());
    QVERIFY(std::abs(item->duration() - 4) < 0.15);
    player.play();
    QVERIFY(playsPast(player, 0));
    player.seek(3);
    QVERIFY(playsPast(player, 3));
    QTRY_VERIFY(player.rate() == 0);
    QCOMPARE(player.currentTime(), item->duration());
    player.play();
    QVERIFY(playsPast(player, 0));
    QVERIFY(player.currentTime() < 2);
}

void TestHls::failsWithoutSegments()
{
    TestServer server(clipPath(QStringLiteral("hls")));
    server.serve(list, "#EXTM3U\n#EXT-X-TARGETDURATION:1\n#EXTINF:1,\nnone.ts\n#EXT-X-ENDLIST\n",
        "application/vnd.apple.mpegurl");
    MediaPlayer player;
    player.play();
    const MediaItem *item = open(player, server.url(list));
    QCOMPARE(settledStatus(item), MediaItem::Status::Failed);
    QVERIFY(server.requestCount(QStringLiteral("/none.ts")) > 0);
}

void TestHls::playsLive()
{
    const Station station;
    QVERIFY(station.isOnAir());
    MediaPlayer player;
    player.play();
    const MediaItem *item = open(player, station.url());
    QSignalSpy durationChanged(item, &MediaItem::durationChanged);
    QCOMPARE(settledStatus(item), MediaItem::Status::ReadyToPlay);
    QVERIFY(item->isLive());
    QTRY_VERIFY(player.timeControlStatus() == Status::Playing);
    QTRY_VERIFY(item->presentationSize() == QSizeF(320, 180));
    const double start = player.currentTime();
    QVERIFY(playsPast(player, start + 2));
    QCOMPARE(item->duration(), 0);
    QCOMPARE(durationChanged.count(), 0);
}

void TestHls::waitsForAStalledStation()
{
    Station station;
    QVERIFY(station.isOnAir());
    MediaPlayer player;
    player.play();
    const MediaItem *item = open(player, station.url());
    QVERIFY(playsPast(player, 0));
    QTRY_VERIFY(item->isPlaybackLikelyToKeepUp());
    QVERIFY(!item->isPlaybackBufferEmpty());

    station.stream.stall();
    QTRY_VERIFY(player.timeControlStatus() == Status::WaitingToPlayAtSpecifiedRate);
    QTRY_VERIFY(item->isPlaybackBufferEmpty());
    QVERIFY(!item->isPlaybackLikelyToKeepUp());
    QCOMPARE(player.rate(), 1);

    station.stream.goOn();
    QTRY_VERIFY(player.timeControlStatus() == Status::Playing);
    QTRY_VERIFY(!item->isPlaybackBufferEmpty());
    QCOMPARE(player.rate(), 1);
    QCOMPARE(item->status(), MediaItem::Status::ReadyToPlay);
}

void TestHls::returnsToAServerThatWasAway()
{
    Station station;
    QVERIFY(station.isOnAir());
    MediaPlayer player;
    QSignalSpy rateChanged(&player, &MediaPlayer::rateChanged);
    player.play();
    const MediaItem *item = open(player, station.url());
    QSignalSpy statusChanged(item, &MediaItem::statusChanged);
    QVERIFY(playsPast(player, 0));

    station.server.stop();
    QTRY_VERIFY(player.timeControlStatus() == Status::WaitingToPlayAtSpecifiedRate);
    QTRY_VERIFY(item->isPlaybackBufferEmpty());
    QVERIFY(!item->isPlaybackLikelyToKeepUp());
    // Long enough for a first attempt that is in vain.
    QTest::qWait(2000);
    QCOMPARE(player.timeControlStatus(), Status::WaitingToPlayAtSpecifiedRate);

    station.server.start();
    QTRY_VERIFY(player.timeControlStatus() == Status::Playing);
    QTRY_VERIFY(!item->isPlaybackBufferEmpty());
    QVERIFY(playsPast(player, player.currentTime() + 0.3));
    QCOMPARE(player.currentItem(), item);
    QVERIFY(item->isLive());
    QCOMPARE(item->duration(), 0);
    // It never failed, and play was wanted all the time.
    QCOMPARE(item->status(), MediaItem::Status::ReadyToPlay);
    QCOMPARE(statusChanged.count(), 1);
    QCOMPARE(rateChanged.count(), 1);
}

void TestHls::pauseEndsReloading()
{
    Station station;
    QVERIFY(station.isOnAir());
    MediaPlayer player;
    player.play();
    const MediaItem *item = open(player, station.url());
    QVERIFY(playsPast(player, 0));
    // Only the list goes away, so that attempts can be counted.
    QVERIFY(station.server.requestCount(list) > 0);
    station.server.serve(list, "gone");
    QTRY_VERIFY(item->isPlaybackBufferEmpty());
    QTest::qWait(1500);
    player.pause();
    QCOMPARE(player.timeControlStatus(), Status::Paused);
    QTest::qWait(300);
    const int attempts = station.server.requestCount(list);
    QTest::qWait(3000);
    QCOMPARE(station.server.requestCount(list), attempts);
    QCOMPARE(player.timeControlStatus(), Status::Paused);

    // Play does not wait for the next delay.
    station.server.serveFile(list);
    player.play();
    QVERIFY(QTest::qWaitFor([&] { return station.server.requestCount(list) > attempts; }, 900));
    QTRY_VERIFY(player.timeControlStatus() == Status::Playing);
}

void TestHls::removalEndsReloading()
{
    Station station;
    QVERIFY(station.isOnAir());
    MediaPlayer player;
    player.play();
    const MediaItem *item = open(player, station.url());
    QVERIFY(playsPast(player, 0));
    station.server.serve(list, "gone");
    QTRY_VERIFY(item->isPlaybackBufferEmpty());
    player.replaceCurrentItem({});
    QTest::qWait(300);
    const int attempts = station.server.requestCount(list);
    QTest::qWait(2500);
    QCOMPARE(station.server.requestCount(list), attempts);
    QCOMPARE(player.currentItem(), nullptr);
}

// The list says so, and then the stream is a film like others.
void TestHls::showsTheEndOfAStation()
{
    Station station;
    QVERIFY(station.isOnAir());
    MediaPlayer player;
    player.play();
    const MediaItem *item = open(player, station.url());
    QVERIFY(playsPast(player, 0));
    station.stream.end();
    QTRY_VERIFY(player.rate() == 0);
    QCOMPARE(player.currentItem(), item);
    QCOMPARE(item->status(), MediaItem::Status::ReadyToPlay);
    QVERIFY(!item->isLive());
    QVERIFY(item->duration() > 1);
    QCOMPARE(player.currentTime(), item->duration());
}

ZEPH_ENGINE_TEST_MAIN(TestHls)
#include "tst_hls.moc"
