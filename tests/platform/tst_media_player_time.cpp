// Where a player is and goes: time observers and jumps.
#include "support/EngineTest.h"

#include <QAbstractEventDispatcher>
#include <QEventLoop>
#include <QTimer>

#include <cmath>
#include <functional>
#include <limits>

using namespace zeph;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double huge = std::numeric_limits<double>::max();

// Longer than any two calls of an observer are apart.
constexpr int silence = 1200;

// How often the main thread has something to do within a period of silence.
int wakeUps()
{
    int count = 0;
    QEventLoop loop;
    QTimer::singleShot(silence, &loop, &QEventLoop::quit);
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, &loop,
        [&count] { ++count; });
    loop.exec();
    return count;
}

// What the event loop and the timer that ends the wait need.
constexpr int wakeUpsOfNothing = 4;

} // namespace

class TestMediaPlayerTime : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void observesTimeWhilePlaying();
    void observesStartAndStop();
    void observesJumpsWhilePaused();
    void isSilentWhileNothingMoves_data();
    void isSilentWhileNothingMoves();
    void observersAreIndependent();
    void observerMayRemoveItself();
    void observerMayReplaceTheItem();
    void jumpsOutOfRange_data();
    void jumpsOutOfRange();
    void jumpsOnceOpen();
    void ignoresJumpsWithoutAPlayableItem();
};

void TestMediaPlayerTime::observesTimeWhilePlaying()
{
    MediaPlayer player;
    open(player, shortClip());
    player.play();
    QVERIFY(playsPast(player, 0));
    QList<double> times;
    player.addPeriodicTimeObserver([&times](double seconds) { times.append(seconds); });
    QTRY_VERIFY(player.rate() == 0);
    QTRY_VERIFY(!times.isEmpty() && times.last() == player.currentTime());

    // One every quarter of a second of the two, and few besides.
    QVERIFY2(times.count() >= 5 && times.count() <= 16, qPrintable(QString::number(times.count())));
    QVERIFY(std::is_sorted(times.begin(), times.end()));
    for (qsizetype i = 1; i < times.count(); ++i)
        QVERIFY(times[i] - times[i - 1] < 0.75);
}

void TestMediaPlayerTime::observesStartAndStop()
{
    MediaPlayer player;
    const MediaItem *item = open(player, longClip());
    QCOMPARE(settledStatus(item), MediaItem::Status::ReadyToPlay);
    QTest::qWait(silence);
    QList<double> rates;
    player.addPeriodicTimeObserver([&](double) { rates.append(player.rate()); });
    player.play();
    QTRY_VERIFY(rates.contains(1));
    rates.clear();
    player.pause();
    QTRY_VERIFY(rates.contains(0));
}

void TestMediaPlayerTime::observesJumpsWhilePaused()
{
    MediaPlayer player;
    const MediaItem *item = open(player, longClip());
    QCOMPARE(settledStatus(item), MediaItem::Status::ReadyToPlay);
    QTest::qWait(silence);
    QList<double> times;
    player.addPeriodicTimeObserver([&times](double seconds) { times.append(seconds); });
    for (const double target : { 10.0, 5.0, 0.0 }) {
        times.clear();
        player.seek(target);
        QTRY_VERIFY(!times.isEmpty() && std::abs(times.last() - target) < 0.05);
    }
}

void TestMediaPlayerTime::isSilentWhileNothingMoves_data()
{
    using Preparation = std::function<void(MediaPlayer &)>;
    QTest::addColumn<Preparation>("prepare");

    QTest::newRow("empty") << Preparation([](MediaPlayer &player) { player.prepare(); });
    QTest::newRow("empty, play wanted") << Preparation([](MediaPlayer &player) {
        player.prepare();
        player.play();
    });
    QTest::newRow("removed while playing") << Preparation([](MediaPlayer &player) {
        player.play();
        open(player, longClip());
        QVERIFY(playsPast(player, 0));
        player.replaceCurrentItem({});
    });
    QTest::newRow("never played") << Preparation([](MediaPlayer &player) {
        QCOMPARE(settledStatus(open(player, longClip())), MediaItem::Status::ReadyToPlay);
    });
    QTest::newRow("paused") << Preparation([](MediaPlayer &player) {
        player.play();
        open(player, longClip());
        QVERIFY(playsPast(player, 0.3));
        player.pause();
    });
    QTest::newRow("jumped while paused") << Preparation([](MediaPlayer &player) {
        QCOMPARE(settledStatus(open(player, longClip())), MediaItem::Status::ReadyToPlay);
        player.seek(10);
    });
    QTest::newRow("at the end") << Preparation([](MediaPlayer &player) {
        player.play();
        open(player, shortClip());
        QVERIFY(playsPast(player, 0));
        player.seek(1.9);
        QTRY_VERIFY(player.rate() == 0);
    });
    QTest::newRow("failed") << Preparation([](MediaPlayer &player) {
        player.play();
        QCOMPARE(settledStatus(open(player, missingClip())), MediaItem::Status::Failed);
    });
}

void TestMediaPlayerTime::isSilentWhileNothingMoves()
{
    QFETCH(const std::function<void(MediaPlayer &)>, prepare);
    MediaPlayer player;
    int calls = 0;
    player.addPeriodicTimeObserver([&calls](double) { ++calls; });
    prepare(player);
    // What it still has to say of the last change.
    QTest::qWait(1000);
    calls = 0;
    const int count = wakeUps();
    QCOMPARE(calls, 0);
    QVERIFY2(count <= wakeUpsOfNothing, qPrintable(QString::number(count)));
}

void TestMediaPlayerTime::observersAreIndependent()
{
    MediaPlayer player;
    int first = 0;
    int second = 0;
    const int firstToken = player.addPeriodicTimeObserver([&first](double) { ++first; });
    const int secondToken = player.addPeriodicTimeObserver([&second](double) { ++second; });
    QVERIFY(firstToken != secondToken);
    open(player, shortClip());
    player.play();
    QTRY_VERIFY(first > 2 && second > 2);
    player.removeTimeObserver(firstToken);
    player.removeTimeObserver(firstToken);
    player.removeTimeObserver(-1);
    first = 0;
    second = 0;
    QTRY_VERIFY(second > 2);
    QCOMPARE(first, 0);
}

void TestMediaPlayerTime::observerMayRemoveItself()
{
    MediaPlayer player;
    int calls = 0;
    int others = 0;
    int token = 0;
    token = player.addPeriodicTimeObserver([&](double) {
        ++calls;
        player.removeTimeObserver(token);
    });
    player.addPeriodicTimeObserver([&others](double) { ++others; });
    open(player, shortClip());
    player.play();
    QTRY_VERIFY(others > 3);
    QCOMPARE(calls, 1);
}

void TestMediaPlayerTime::observerMayReplaceTheItem()
{
    MediaPlayer player;
    player.addPeriodicTimeObserver([&player](double seconds) {
        if (seconds > 0.5 && player.currentItem() && player.currentItem()->url() == shortClip())
            open(player, longClip());
    });
    open(player, shortClip());
    player.play();
    QTRY_VERIFY(player.currentItem()->url() == longClip());
    QVERIFY(playsPast(player, 0));
}

void TestMediaPlayerTime::jumpsOutOfRange_data()
{
    QTest::addColumn<double>("target");
    QTest::addColumn<double>("expected");
    QTest::newRow("not a number") << notANumber << 1.0;
    QTest::newRow("infinity") << infinity << 1.0;
    QTest::newRow("minus infinity") << -infinity << 1.0;
    QTest::newRow("negative") << -5.0 << 0.0;
    QTest::newRow("hugely negative") << -huge << 0.0;
    QTest::newRow("smallest") << std::numeric_limits<double>::denorm_min() << 0.0;
    QTest::newRow("the end") << 30.0 << 30.0;
    QTest::newRow("past the end") << 40.0 << 30.0;
    QTest::newRow("huge") << huge << 30.0;
    QTest::newRow("beyond 64 bits") << 1e19 << 30.0;
}

void TestMediaPlayerTime::jumpsOutOfRange()
{
    QFETCH(const double, target);
    QFETCH(const double, expected);
    MediaPlayer player;
    const MediaItem *item = open(player, longClip());
    QCOMPARE(settledStatus(item), MediaItem::Status::ReadyToPlay);
    player.seek(1);
    QTest::qWait(100);
    player.seek(target);
    QTRY_VERIFY(std::abs(player.currentTime() - expected) < 0.1);
    QTest::qWait(300);
    QVERIFY(std::abs(player.currentTime() - expected) < 0.1);

    // It still works.
    player.seek(2);
    player.play();
    QVERIFY(playsPast(player, 2));
    QVERIFY(player.currentTime() < 10);
}

void TestMediaPlayerTime::jumpsOnceOpen()
{
    for (int round = 0; round < 5; ++round) {
        MediaPlayer player;
        const MediaItem *item = open(player, longClip());
        player.seek(-1);
        player.seek(10);
        player.seek(notANumber);
        QCOMPARE(settledStatus(item), MediaItem::Status::ReadyToPlay);
        QTRY_VERIFY(std::abs(player.currentTime() - 10) < 0.05);
        player.play();
        QVERIFY(playsPast(player, 10));
        QVERIFY(player.currentTime() < 20);
    }
}

void TestMediaPlayerTime::ignoresJumpsWithoutAPlayableItem()
{
    MediaPlayer player;
    player.seek(5);
    QCOMPARE(player.currentTime(), 0);
    QCOMPARE(settledStatus(open(player, missingClip())), MediaItem::Status::Failed);
    player.seek(5);
    QCOMPARE(player.currentTime(), 0);
    // Nor is it done later, to another item.
    QCOMPARE(settledStatus(open(player, longClip())), MediaItem::Status::ReadyToPlay);
    QTest::qWait(300);
    QCOMPARE(player.currentTime(), 0);
}

ZEPH_ENGINE_TEST_MAIN(TestMediaPlayerTime)
#include "tst_media_player_time.moc"
