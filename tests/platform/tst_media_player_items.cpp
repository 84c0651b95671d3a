// What a player opens and lets go of.
#include "support/EngineTest.h"
#include "support/Patience.h"

#include <QDir>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <cmath>
#include <functional>
#include <sys/stat.h>

using namespace zeph;
using Status = MediaPlayer::TimeControlStatus;

namespace {

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

} // namespace

class TestMediaPlayerItems : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void failedItemIsTriedAgain();
    void reportsEachStatusOnce();
    void replacingDestroysTheOldItem();
    void removingEmptiesThePlayer();
    void handlerMayReplaceTheItem_data();
    void handlerMayReplaceTheItem();
    void endHandlerMayPlayAgain();
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

void TestMediaPlayerItems::failedItemIsTriedAgain()
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

void TestMediaPlayerItems::reportsEachStatusOnce()
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
    QTRY_VERIFY(player.rate() == 0);
    QCOMPARE(statuses.last(), Status::Paused);
}

void TestMediaPlayerItems::replacingDestroysTheOldItem()
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

void TestMediaPlayerItems::removingEmptiesThePlayer()
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

void TestMediaPlayerItems::handlerMayReplaceTheItem_data()
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

void TestMediaPlayerItems::handlerMayReplaceTheItem()
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
        QTRY_VERIFY(handled);
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

void TestMediaPlayerItems::endHandlerMayPlayAgain()
{
    MediaPlayer player;
    int ends = 0;
    connect(&player, &MediaPlayer::rateChanged, &player, [&] {
        if (player.rate() == 0 && ++ends < 3)
            player.play();
    });
    player.play();
    open(player, shortClip());
    QTRY_VERIFY(ends == 3);
    QCOMPARE(player.rate(), 0);
    QCOMPARE(player.currentTime(), player.currentItem()->duration());
}

void TestMediaPlayerItems::refusesUnplayableAddresses_data()
{
    QTest::addColumn<QUrl>("url");
    QTest::newRow("empty") << QUrl();
    QTest::newRow("no scheme") << QUrl(QStringLiteral("clip.mp4"));
    QTest::newRow("not an address") << QUrl(QStringLiteral("http://a b/"));
    QTest::newRow("a page of the program") << QUrl(QStringLiteral("qrc:/clip.mp4"));
    QTest::newRow("lone surrogates") << QUrl(QStringLiteral("\xD800\xDC00\xD800:"));
    QTest::newRow("null") << QUrl::fromLocalFile(QStringLiteral("/tmp/a") + QChar(0));
}

void TestMediaPlayerItems::refusesUnplayableAddresses()
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

void TestMediaPlayerItems::playsOddFileNames_data()
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

void TestMediaPlayerItems::playsOddFileNames()
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

void TestMediaPlayerItems::letsGoOfAPipeThatNobodyWrites()
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

void TestMediaPlayerItems::survivesQuickReplacement()
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
    QTRY_VERIFY(openFiles() <= filesBefore);
    QTRY_VERIFY(threads() <= threadsBefore);
}

void TestMediaPlayerItems::canBeDestroyedAnytime_data()
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

void TestMediaPlayerItems::canBeDestroyedAnytime()
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

void TestMediaPlayerItems::playersAreIndependent()
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
    QTRY_VERIFY(second.rate() == 0);
    QCOMPARE(second.currentTime(), second.currentItem()->duration());
}

ZEPH_ENGINE_TEST_MAIN(TestMediaPlayerItems)
#include "tst_media_player_items.moc"
