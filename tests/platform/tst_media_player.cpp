// The state that a player is in: what it was asked to do, what it does, its sound.
#include "support/EngineTest.h"

#include <QSignalSpy>

#include <cmath>
#include <limits>

using namespace zeph;
using Status = MediaPlayer::TimeControlStatus;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double huge = std::numeric_limits<double>::max();

// Longer than any two calls of an observer are apart.
constexpr int silence = 1200;

} // namespace

class TestMediaPlayer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void startsEmpty();
    void waitsWithoutAnItem();
    void rateIsWhatWasAskedForWhileLoading();
    void rateOutlivesTheItem();
    void rateOutlivesAFailure();
    void replaysFromItsEnd();
    void waitsAtTheEndForAJumpBack();
    void limitsVolume_data();
    void limitsVolume();
    void mutes();
};

void TestMediaPlayer::startsEmpty()
{
    const MediaPlayer player;
    QCOMPARE(player.currentItem(), nullptr);
    QCOMPARE(player.rate(), 0);
    QCOMPARE(player.timeControlStatus(), Status::Paused);
    QCOMPARE(player.currentTime(), 0);
    QCOMPARE(player.volume(), 1);
    QVERIFY(!player.isMuted());
}

void TestMediaPlayer::waitsWithoutAnItem()
{
    MediaPlayer player;
    player.play();
    QCOMPARE(player.rate(), 1);
    QCOMPARE(player.timeControlStatus(), Status::WaitingToPlayAtSpecifiedRate);
    player.pause();
    QCOMPARE(player.timeControlStatus(), Status::Paused);
}

void TestMediaPlayer::rateIsWhatWasAskedForWhileLoading()
{
    MediaPlayer player;
    QSignalSpy rateChanged(&player, &MediaPlayer::rateChanged);
    const MediaItem *item = open(player, longClip());
    QCOMPARE(player.rate(), 0);
    player.play();
    player.play();
    QCOMPARE(player.rate(), 1);
    QCOMPARE(rateChanged.count(), 1);
    QCOMPARE(player.timeControlStatus(), Status::WaitingToPlayAtSpecifiedRate);
    player.pause();
    player.pause();
    QCOMPARE(player.rate(), 0);
    QCOMPARE(rateChanged.count(), 2);

    QCOMPARE(settledStatus(item), MediaItem::Status::ReadyToPlay);
    QTest::qWait(silence);
    QCOMPARE(player.rate(), 0);
    QCOMPARE(player.timeControlStatus(), Status::Paused);
    QCOMPARE(player.currentTime(), 0);
    QCOMPARE(rateChanged.count(), 2);
}

void TestMediaPlayer::rateOutlivesTheItem()
{
    MediaPlayer player;
    QSignalSpy rateChanged(&player, &MediaPlayer::rateChanged);
    player.play();
    open(player, longClip());
    QVERIFY(playsPast(player, 0));
    open(player, shortClip());
    QCOMPARE(player.rate(), 1);
    QCOMPARE(player.timeControlStatus(), Status::WaitingToPlayAtSpecifiedRate);
    QVERIFY(playsPast(player, 0));
    player.replaceCurrentItem({});
    QCOMPARE(player.rate(), 1);
    QCOMPARE(player.timeControlStatus(), Status::WaitingToPlayAtSpecifiedRate);
    open(player, longClip());
    QVERIFY(playsPast(player, 0));
    QCOMPARE(rateChanged.count(), 1);
}

void TestMediaPlayer::rateOutlivesAFailure()
{
    MediaPlayer player;
    QSignalSpy rateChanged(&player, &MediaPlayer::rateChanged);
    player.play();
    const MediaItem *item = open(player, missingClip());
    QCOMPARE(settledStatus(item), MediaItem::Status::Failed);
    QCOMPARE(player.rate(), 1);
    QCOMPARE(player.timeControlStatus(), Status::WaitingToPlayAtSpecifiedRate);
    QVERIFY(item->isPlaybackBufferEmpty());
    QVERIFY(!item->isPlaybackLikelyToKeepUp());
    open(player, shortClip());
    QVERIFY(playsPast(player, 0));
    QCOMPARE(rateChanged.count(), 1);
}

void TestMediaPlayer::replaysFromItsEnd()
{
    MediaPlayer player;
    const MediaItem *item = open(player, shortClip());
    player.play();
    for (int round = 0; round < 3; ++round) {
        QVERIFY(playsPast(player, 0));
        player.seek(1.9);
        QTRY_VERIFY(player.rate() == 0);
        QCOMPARE(player.currentTime(), item->duration());
        player.play();
        QCOMPARE(player.rate(), 1);
        QTRY_VERIFY(player.timeControlStatus() == Status::Playing);
        QVERIFY(player.currentTime() < 1);
    }
}

void TestMediaPlayer::waitsAtTheEndForAJumpBack()
{
    MediaPlayer player;
    open(player, shortClip());
    player.play();
    QVERIFY(playsPast(player, 0));
    player.seek(1.9);
    QTRY_VERIFY(player.rate() == 0);
    player.seek(0.5);
    QTest::qWait(silence);
    QCOMPARE(player.rate(), 0);
    QVERIFY(std::abs(player.currentTime() - 0.5) < 0.05);
    player.play();
    QTRY_VERIFY(player.timeControlStatus() == Status::Playing);
    QVERIFY(playsPast(player, 0.7));
}

void TestMediaPlayer::limitsVolume_data()
{
    QTest::addColumn<double>("volume");
    QTest::addColumn<double>("expected");
    QTest::newRow("silence") << 0.0 << 0.0;
    QTest::newRow("within") << 0.25 << 0.25;
    QTest::newRow("full") << 1.0 << 1.0;
    QTest::newRow("too loud") << 1.5 << 1.0;
    QTest::newRow("negative") << -0.5 << 0.0;
    QTest::newRow("infinity") << infinity << 1.0;
    QTest::newRow("minus infinity") << -infinity << 0.0;
    QTest::newRow("huge") << huge << 1.0;
    QTest::newRow("not a number") << notANumber << 0.5;
}

void TestMediaPlayer::limitsVolume()
{
    QFETCH(const double, volume);
    QFETCH(const double, expected);
    MediaPlayer player;
    player.setVolume(0.5);
    player.setVolume(volume);
    QCOMPARE(player.volume(), expected);
    player.play();
    open(player, shortClip());
    QVERIFY(playsPast(player, 0));
    QCOMPARE(player.volume(), expected);
    player.setVolume(0.5);
    player.setVolume(volume);
    QCOMPARE(player.volume(), expected);
}

void TestMediaPlayer::mutes()
{
    MediaPlayer player;
    player.setVolume(0.5);
    player.setMuted(true);
    QVERIFY(player.isMuted());
    QCOMPARE(player.volume(), 0.5);
    player.play();
    open(player, shortClip());
    QVERIFY(playsPast(player, 0));
    QVERIFY(player.isMuted());
    player.setMuted(false);
    QVERIFY(!player.isMuted());
}

ZEPH_ENGINE_TEST_MAIN(TestMediaPlayer)
#include "tst_media_player.moc"
