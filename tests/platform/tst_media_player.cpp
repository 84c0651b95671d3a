#include "support/EngineTest.h"

#include <QAbstractEventDispatcher>
#include <QDir>
#include <QEventLoop>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <cmath>
#include <limits>
#include <sys/stat.h>

using namespace zeph;
using Status = MediaPlayer::TimeControlStatus;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double huge = std::numeric_limits<double>::max();

// Longer than any two calls of an observer are apart.
constexpr int silence = 1200;

QUrl shortClip()
{
    return clipUrl(QStringLiteral("clip.mp4"));
}

QUrl longClip()
{
    return clipUrl(QStringLiteral("long.mp4"));
}

QUrl missingClip()
{
    return clipUrl(QStringLiteral("nothing-there.mp4"));
}

int openFiles()
{
    return static_cast<int>(
        QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::AllEntries).count());
}

int threads()
{
    const auto filter = QDir::AllEntries | QDir::NoDotAndDotDot;
    return static_cast<int>(QDir(QStringLiteral("/proc/self/task")).entryList(filter).count());
}

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

class TestMediaPlayer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void startsEmpty();
    void waitsWithoutAnItem();

    void rateIsWhatWasAskedForWhileLoading();
    void rateOutlivesTheItem();
    void rateOutlivesAFailure();
    void failedItemIsTriedAgain();
    void reportsEachStatusOnce();
    void replaysFromItsEnd();
    void waitsAtTheEndForAJumpBack();

    void observesTimeWhilePlaying();
    void observesStartAndStop();
    void observesJumpsWhilePaused();
    void isSilentWhileNothingMoves_data();
    void isSilentWhileNothingMoves();
    void observersAreIndependent();
    void observerMayRemoveItself();
    void observerMayReplaceTheItem();

    void replacingDestroysTheOldItem();
    void removingEmptiesThePlayer();
    void handlerMayReplaceTheItem_data();
    void handlerMayReplaceTheItem();
    void endHandlerMayPlayAgain();

    void limitsVolume_data();
    void limitsVolume();
    void mutes();

    void jumpsOutOfRange_data();
    void jumpsOutOfRange();
    void jumpsOnceOpen();
    void ignoresJumpsWithoutAPlayableItem();
    void refusesUnplayableAddresses_data();
    void refusesUnplayableAddresses();
    void playsOddFileNames_data();
    void playsOddFileNames();
    void letsGoOfAPipeThatNobodyWrites();

    void survivesQuickReplacement();
    void canBeDestroyedAnytime_data();
    void canBeDestroyedAnytime();
    void playersAreIndependent();
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

// ---- Rate

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

void TestMediaPlayer::failedItemIsTriedAgain()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("late.mp4"));
    MediaPlayer player;
    player.play();
    const MediaItem *item = open(player, QUrl::fromLocalFile(path));
    QCOMPARE(settledStatus(item), MediaItem::Status::Failed);
    QVERIFY(!item->errorText().isEmpty());

    QVERIFY(QFile::copy(clipPath(QStringLiteral("clip.mp4")), path));
    player.pause();
    player.play();
    QVERIFY(playsPast(player, 0));
    QCOMPARE(player.currentItem(), item);
    QCOMPARE(item->status(), MediaItem::Status::ReadyToPlay);
    QVERIFY(item->errorText().isEmpty());
}

void TestMediaPlayer::reportsEachStatusOnce()
{
    MediaPlayer player;
    QList<Status> statuses;
    connect(&player, &MediaPlayer::timeControlStatusChanged, this,
        [&] { statuses.append(player.timeControlStatus()); });
    open(player, shortClip());
    player.play();
    QVERIFY(playsPast(player, 0.3));
    player.pause();
    QCOMPARE(player.timeControlStatus(), Status::Paused);
    const QList<Status> expected { Status::WaitingToPlayAtSpecifiedRate, Status::Playing,
        Status::Paused };
    QCOMPARE(statuses, expected);

    player.play();
    QVERIFY(playsPast(player, 0.6));
    ZEPH_WAIT_UNTIL(player.rate() == 0);
    QCOMPARE(statuses.last(), Status::Paused);
}

void TestMediaPlayer::replaysFromItsEnd()
{
    MediaPlayer player;
    const MediaItem *item = open(player, shortClip());
    player.play();
    for (int round = 0; round < 3; ++round) {
        QVERIFY(playsPast(player, 0));
        player.seek(1.9);
        ZEPH_WAIT_UNTIL(player.rate() == 0);
        QCOMPARE(player.currentTime(), item->duration());
        player.play();
        QCOMPARE(player.rate(), 1);
        ZEPH_WAIT_UNTIL(player.timeControlStatus() == Status::Playing);
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
    ZEPH_WAIT_UNTIL(player.rate() == 0);
    player.seek(0.5);
    QTest::qWait(silence);
    QCOMPARE(player.rate(), 0);
    QVERIFY(std::abs(player.currentTime() - 0.5) < 0.05);
    player.play();
    ZEPH_WAIT_UNTIL(player.timeControlStatus() == Status::Playing);
    QVERIFY(playsPast(player, 0.7));
}

// ---- Time observers

void TestMediaPlayer::observesTimeWhilePlaying()
{
    MediaPlayer player;
    open(player, shortClip());
    player.play();
    QVERIFY(playsPast(player, 0));
    QList<double> times;
    player.addPeriodicTimeObserver([&times](double seconds) { times.append(seconds); });
    ZEPH_WAIT_UNTIL(player.rate() == 0);
    ZEPH_WAIT_UNTIL(!times.isEmpty() && times.last() == player.currentTime());

    // One every quarter of a second of the two, and few besides.
    QVERIFY2(times.count() >= 5 && times.count() <= 16, qPrintable(QString::number(times.count())));
    QVERIFY(std::is_sorted(times.begin(), times.end()));
    for (qsizetype i = 1; i < times.count(); ++i)
        QVERIFY(times[i] - times[i - 1] < 0.75);
}

void TestMediaPlayer::observesStartAndStop()
{
    MediaPlayer player;
    const MediaItem *item = open(player, longClip());
    QCOMPARE(settledStatus(item), MediaItem::Status::ReadyToPlay);
    QTest::qWait(silence);
    QList<double> rates;
    player.addPeriodicTimeObserver([&](double) { rates.append(player.rate()); });
    player.play();
    ZEPH_WAIT_UNTIL(rates.contains(1));
    rates.clear();
    player.pause();
    ZEPH_WAIT_UNTIL(rates.contains(0));
}

void TestMediaPlayer::observesJumpsWhilePaused()
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
        ZEPH_WAIT_UNTIL(!times.isEmpty() && std::abs(times.last() - target) < 0.05);
    }
}

void TestMediaPlayer::isSilentWhileNothingMoves_data()
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
        ZEPH_WAIT_UNTIL(player.rate() == 0);
    });
    QTest::newRow("failed") << Preparation([](MediaPlayer &player) {
        player.play();
        QCOMPARE(settledStatus(open(player, missingClip())), MediaItem::Status::Failed);
    });
}

void TestMediaPlayer::isSilentWhileNothingMoves()
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

void TestMediaPlayer::observersAreIndependent()
{
    MediaPlayer player;
    int first = 0;
    int second = 0;
    const int firstToken = player.addPeriodicTimeObserver([&first](double) { ++first; });
    const int secondToken = player.addPeriodicTimeObserver([&second](double) { ++second; });
    QVERIFY(firstToken != secondToken);
    open(player, shortClip());
    player.play();
    ZEPH_WAIT_UNTIL(first > 2 && second > 2);
    player.removeTimeObserver(firstToken);
    player.removeTimeObserver(firstToken);
    player.removeTimeObserver(-1);
    first = 0;
    second = 0;
    ZEPH_WAIT_UNTIL(second > 2);
    QCOMPARE(first, 0);
}

void TestMediaPlayer::observerMayRemoveItself()
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
    ZEPH_WAIT_UNTIL(others > 3);
    QCOMPARE(calls, 1);
}

void TestMediaPlayer::observerMayReplaceTheItem()
{
    MediaPlayer player;
    player.addPeriodicTimeObserver([&player](double seconds) {
        if (seconds > 0.5 && player.currentItem() && player.currentItem()->url() == shortClip())
            open(player, longClip());
    });
    open(player, shortClip());
    player.play();
    ZEPH_WAIT_UNTIL(player.currentItem()->url() == longClip());
    QVERIFY(playsPast(player, 0));
}

// ---- Items

void TestMediaPlayer::replacingDestroysTheOldItem()
{
    MediaPlayer player;
    QSignalSpy currentItemChanged(&player, &MediaPlayer::currentItemChanged);
    const QPointer<MediaItem> first = open(player, longClip());
    player.play();
    QVERIFY(playsPast(player, 0.3));
    const MediaItem *second = open(player, shortClip());
    QCOMPARE(player.currentItem(), second);
    QTRY_VERIFY(!first);
    QCOMPARE(player.currentTime(), 0);
    QCOMPARE(currentItemChanged.count(), 2);
    QCOMPARE(settledStatus(second), MediaItem::Status::ReadyToPlay);
    QVERIFY(std::abs(second->duration() - 2) < 0.15);
}

void TestMediaPlayer::removingEmptiesThePlayer()
{
    MediaPlayer player;
    QSignalSpy currentItemChanged(&player, &MediaPlayer::currentItemChanged);
    player.replaceCurrentItem({});
    QCOMPARE(currentItemChanged.count(), 0);

    const QPointer<MediaItem> item = open(player, longClip());
    player.play();
    QVERIFY(playsPast(player, 0.3));
    player.replaceCurrentItem({});
    QCOMPARE(player.currentItem(), nullptr);
    QTRY_VERIFY(!item);
    QCOMPARE(player.currentTime(), 0);
    QCOMPARE(currentItemChanged.count(), 2);
    player.replaceCurrentItem({});
    QCOMPARE(currentItemChanged.count(), 2);
}

void TestMediaPlayer::handlerMayReplaceTheItem_data()
{
    using Connection = std::function<void(MediaPlayer &, MediaItem *, std::function<void()>)>;
    QTest::addColumn<QUrl>("url");
    QTest::addColumn<Connection>("connectHandler");

    const auto ofItem = [](auto signal) {
        return Connection([signal](MediaPlayer &, MediaItem *item, std::function<void()> handler) {
            connect(item, signal, item, handler);
        });
    };
    const auto ofPlayer = [](auto signal) {
        return Connection(
            [signal](MediaPlayer &player, MediaItem *, std::function<void()> handler) {
                connect(&player, signal, &player, handler);
            });
    };
    QTest::newRow("ready") << shortClip() << ofItem(&MediaItem::statusChanged);
    QTest::newRow("failed") << missingClip() << ofItem(&MediaItem::statusChanged);
    QTest::newRow("refused") << QUrl(QStringLiteral("edl://a"))
                             << ofItem(&MediaItem::statusChanged);
    QTest::newRow("duration") << shortClip() << ofItem(&MediaItem::durationChanged);
    QTest::newRow("size") << shortClip() << ofItem(&MediaItem::presentationSizeChanged);
    QTest::newRow("buffer filled") << shortClip() << ofItem(&MediaItem::playbackBufferEmptyChanged);
    QTest::newRow("likely to keep up")
        << shortClip() << ofItem(&MediaItem::playbackLikelyToKeepUpChanged);
    QTest::newRow("playing") << shortClip() << ofPlayer(&MediaPlayer::timeControlStatusChanged);
    QTest::newRow("ended") << shortClip() << ofPlayer(&MediaPlayer::rateChanged);
}

void TestMediaPlayer::handlerMayReplaceTheItem()
{
    QFETCH(const QUrl, url);
    using Connection = std::function<void(MediaPlayer &, MediaItem *, std::function<void()>)>;
    QFETCH(const Connection, connectHandler);

    for (const bool remove : { true, false }) {
        MediaPlayer player;
        player.play();
        auto item = std::make_unique<MediaItem>(url);
        bool handled = false;
        connectHandler(player, item.get(), [&] {
            if (std::exchange(handled, true))
                return;
            if (remove)
                player.replaceCurrentItem({});
            else
                open(player, longClip());
        });
        player.replaceCurrentItem(std::move(item));
        ZEPH_WAIT_UNTIL(handled);
        // Nothing of the old item comes to the new one, or to none.
        QTest::qWait(100);
        player.play();
        if (remove) {
            QCOMPARE(player.currentItem(), nullptr);
            QCOMPARE(player.timeControlStatus(), Status::WaitingToPlayAtSpecifiedRate);
            open(player, longClip());
        }
        QVERIFY(playsPast(player, 0));
        QVERIFY(std::abs(player.currentItem()->duration() - 30) < 0.15);
    }
}

void TestMediaPlayer::endHandlerMayPlayAgain()
{
    MediaPlayer player;
    int ends = 0;
    connect(&player, &MediaPlayer::rateChanged, &player, [&] {
        if (player.rate() == 0 && ++ends < 3)
            player.play();
    });
    player.play();
    open(player, shortClip());
    ZEPH_WAIT_UNTIL(ends == 3);
    QCOMPARE(player.rate(), 0);
    QCOMPARE(player.currentTime(), player.currentItem()->duration());
}

// ---- Sound

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

// ---- Bad input

void TestMediaPlayer::jumpsOutOfRange_data()
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

void TestMediaPlayer::jumpsOutOfRange()
{
    QFETCH(const double, target);
    QFETCH(const double, expected);
    MediaPlayer player;
    const MediaItem *item = open(player, longClip());
    QCOMPARE(settledStatus(item), MediaItem::Status::ReadyToPlay);
    player.seek(1);
    QTest::qWait(100);
    player.seek(target);
    ZEPH_WAIT_UNTIL(std::abs(player.currentTime() - expected) < 0.1);
    QTest::qWait(300);
    QVERIFY(std::abs(player.currentTime() - expected) < 0.1);

    // It still works.
    player.seek(2);
    player.play();
    QVERIFY(playsPast(player, 2));
    QVERIFY(player.currentTime() < 10);
}

void TestMediaPlayer::jumpsOnceOpen()
{
    for (int round = 0; round < 5; ++round) {
        MediaPlayer player;
        const MediaItem *item = open(player, longClip());
        player.seek(-1);
        player.seek(10);
        player.seek(notANumber);
        QCOMPARE(settledStatus(item), MediaItem::Status::ReadyToPlay);
        ZEPH_WAIT_UNTIL(std::abs(player.currentTime() - 10) < 0.05);
        player.play();
        QVERIFY(playsPast(player, 10));
        QVERIFY(player.currentTime() < 20);
    }
}

void TestMediaPlayer::ignoresJumpsWithoutAPlayableItem()
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

void TestMediaPlayer::refusesUnplayableAddresses_data()
{
    QTest::addColumn<QUrl>("url");
    QTest::newRow("empty") << QUrl();
    QTest::newRow("no scheme") << QUrl(QStringLiteral("clip.mp4"));
    QTest::newRow("not an address") << QUrl(QStringLiteral("http://a b/"));
    QTest::newRow("a page of the program") << QUrl(QStringLiteral("qrc:/clip.mp4"));
    QTest::newRow("lone surrogates") << QUrl(QStringLiteral("\xD800\xDC00\xD800:"));
    QTest::newRow("null") << QUrl::fromLocalFile(QStringLiteral("/tmp/a") + QChar(0));
}

void TestMediaPlayer::refusesUnplayableAddresses()
{
    QFETCH(const QUrl, url);
    MediaPlayer player;
    player.play();
    open(player, longClip());
    QVERIFY(playsPast(player, 0));
    // At once: nothing has to be opened for it.
    const MediaItem *item = open(player, url);
    QCOMPARE(item->status(), MediaItem::Status::Failed);
    QVERIFY(!item->errorText().isEmpty());
    QCOMPARE(player.rate(), 1);
    QCOMPARE(player.timeControlStatus(), Status::WaitingToPlayAtSpecifiedRate);
}

void TestMediaPlayer::playsOddFileNames_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : { "ж🎬é.mp4", "e\u0301.mp4", "\u202Egpm.mp4", "\u200B.mp4", "a b  c.mp4",
             " .mp4", "-o.mp4", "--.mp4", "a#b?c&d.mp4", "100%.mp4", "%2F.mp4", "%03d.mp4",
             "${path}.mp4", "a\nb.mp4", "\\.mp4", "\"'.mp4", "*[a]{b}.mp4", "a|b.mp4",
             "a,b;c=d.mp4", "no suffix", "wrong.txt", "wrong.m3u8", "wrong.cue", "edl:.mp4" })
        QTest::newRow(name) << QString::fromUtf8(name);
    QTest::newRow("255 bytes") << QString(125, QChar(0x436)) + QStringLiteral("a.mp4");
    QTest::newRow("below an odd folder") << QStringLiteral("av:/lavfi:testsrc");
    QTest::newRow("below a file scheme") << QStringLiteral("edl:/a;b.mp4");
}

void TestMediaPlayer::playsOddFileNames()
{
    QFETCH(const QString, name);
    const QTemporaryDir folder;
    const QString path = folder.filePath(name);
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QVERIFY(QFile::copy(clipPath(QStringLiteral("clip.mp4")), path));
    MediaPlayer player;
    const MediaItem *item = open(player, QUrl::fromLocalFile(path));
    QCOMPARE(settledStatus(item), MediaItem::Status::ReadyToPlay);
    QVERIFY(std::abs(item->duration() - 2) < 0.15);
}

void TestMediaPlayer::letsGoOfAPipeThatNobodyWrites()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("pipe"));
    QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    MediaPlayer player;
    player.play();
    const MediaItem *item = open(player, QUrl::fromLocalFile(path));
    QTest::qWait(300);
    QVERIFY(item->status() != MediaItem::Status::ReadyToPlay);
    open(player, longClip());
    QVERIFY(playsPast(player, 0));
    open(player, QUrl::fromLocalFile(path));
}

// ---- Life

void TestMediaPlayer::survivesQuickReplacement()
{
    MediaPlayer player;
    player.play();
    open(player, shortClip());
    QVERIFY(playsPast(player, 0));
    player.replaceCurrentItem({});
    QTest::qWait(500);
    const int filesBefore = openFiles();
    const int threadsBefore = threads();

    const QList<QUrl> urls { shortClip(), longClip(), missingClip(), QUrl(),
        clipUrl(QStringLiteral("clip.mp3")), clipUrl(QStringLiteral("garbage.mp4")) };
    for (int i = 0; i < 200; ++i) {
        open(player, urls[i % urls.count()]);
        // Some get as far as being opened, or further.
        if (i % 3 == 0)
            QTest::qWait(i % 20);
        if (i % 7 == 0)
            player.replaceCurrentItem({});
    }
    const MediaItem *last = open(player, longClip());
    QCOMPARE(settledStatus(last), MediaItem::Status::ReadyToPlay);
    QVERIFY(std::abs(last->duration() - 30) < 0.15);
    QVERIFY(playsPast(player, 0));

    player.replaceCurrentItem({});
    ZEPH_WAIT_UNTIL(openFiles() <= filesBefore);
    ZEPH_WAIT_UNTIL(threads() <= threadsBefore);
}

void TestMediaPlayer::canBeDestroyedAnytime_data()
{
    using Preparation = std::function<void(MediaPlayer &)>;
    QTest::addColumn<Preparation>("prepare");
    QTest::newRow("never used") << Preparation([](MediaPlayer &) {});
    QTest::newRow("engine loading") << Preparation([](MediaPlayer &player) { player.prepare(); });
    QTest::newRow("item waiting for the engine")
        << Preparation([](MediaPlayer &player) { open(player, shortClip()); });
    QTest::newRow("item opening") << Preparation([](MediaPlayer &player) {
        player.play();
        open(player, shortClip());
        QVERIFY(playsPast(player, 0));
        open(player, longClip());
    });
    QTest::newRow("just opened") << Preparation([](MediaPlayer &player) {
        QCOMPARE(settledStatus(open(player, shortClip())), MediaItem::Status::ReadyToPlay);
    });
    QTest::newRow("seeking") << Preparation([](MediaPlayer &player) {
        QCOMPARE(settledStatus(open(player, longClip())), MediaItem::Status::ReadyToPlay);
        player.seek(20);
    });
    QTest::newRow("playing") << Preparation([](MediaPlayer &player) {
        player.play();
        open(player, shortClip());
        QVERIFY(playsPast(player, 0));
    });
    QTest::newRow("failed") << Preparation([](MediaPlayer &player) {
        QCOMPARE(settledStatus(open(player, missingClip())), MediaItem::Status::Failed);
    });
    QTest::newRow("just emptied") << Preparation([](MediaPlayer &player) {
        open(player, shortClip());
        player.replaceCurrentItem({});
    });
}

void TestMediaPlayer::canBeDestroyedAnytime()
{
    QFETCH(const std::function<void(MediaPlayer &)>, prepare);
    QPointer<MediaItem> item;
    {
        MediaPlayer player;
        player.addPeriodicTimeObserver([](double) {});
        prepare(player);
        item = player.currentItem();
    }
    QVERIFY(!item);
    // Nothing is left on its way to it.
    QTest::qWait(20);
}

void TestMediaPlayer::playersAreIndependent()
{
    MediaPlayer first;
    MediaPlayer second;
    open(first, longClip());
    open(second, shortClip());
    first.play();
    QVERIFY(playsPast(first, 0.5));
    QCOMPARE(second.rate(), 0);
    QCOMPARE(second.currentTime(), 0);
    second.play();
    QVERIFY(playsPast(second, 0));
    first.pause();
    ZEPH_WAIT_UNTIL(second.rate() == 0);
    QCOMPARE(second.currentTime(), second.currentItem()->duration());
}

ZEPH_ENGINE_TEST_MAIN(TestMediaPlayer)
#include "tst_media_player.moc"
