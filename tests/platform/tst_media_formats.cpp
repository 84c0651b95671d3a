// Every kind of file that the player offers to open.
#include "support/EngineTest.h"

#include <QSignalSpy>

#include <cmath>

using namespace zeph;
using Status = MediaPlayer::TimeControlStatus;

class TestMediaFormats : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void playsToTheEndAndAgain_data();
    void playsToTheEndAndAgain();
    void appliesPixelAspect();
    void playsWhatIsThereOfATruncatedFile_data();
    void playsWhatIsThereOfATruncatedFile();
    void refusesWhatIsNoMedia_data();
    void refusesWhatIsNoMedia();
};

void TestMediaFormats::playsToTheEndAndAgain_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QSizeF>("size");

    const QSizeF video(320, 180);
    const QSizeF soundAlone(0, 0);
    for (const char *suffix : { "mp4", "mkv", "mov", "avi", "webm", "ts" })
        QTest::newRow(suffix) << QStringLiteral("clip.%1").arg(QLatin1String(suffix)) << video;
    for (const char *suffix : { "mp3", "m4a", "wav", "aiff" })
        QTest::newRow(suffix) << QStringLiteral("clip.%1").arg(QLatin1String(suffix)) << soundAlone;
    QTest::newRow("no sound") << QStringLiteral("silent.mp4") << video;
}

void TestMediaFormats::playsToTheEndAndAgain()
{
    QFETCH(const QString, name);
    QFETCH(const QSizeF, size);

    MediaPlayer player;
    QSignalSpy rateChanged(&player, &MediaPlayer::rateChanged);
    player.play();
    const MediaItem *item = open(player, clipUrl(name));
    QSignalSpy presentationSizeChanged(item, &MediaItem::presentationSizeChanged);

    QCOMPARE(settledStatus(item), MediaItem::Status::ReadyToPlay);
    QVERIFY(item->errorText().isEmpty());
    QVERIFY(!item->isLive());
    QVERIFY2(std::abs(item->duration() - 2) <= 0.15, qPrintable(QString::number(item->duration())));

    QTRY_VERIFY(player.timeControlStatus() == Status::Playing);
    QTRY_VERIFY(item->isPlaybackLikelyToKeepUp());
    QVERIFY(!item->isPlaybackBufferEmpty());
    if (!size.isEmpty())
        QTRY_VERIFY(item->presentationSize() == size);

    QTRY_VERIFY(player.rate() == 0);
    QCOMPARE(player.timeControlStatus(), Status::Paused);
    QCOMPARE(player.currentItem(), item);
    QCOMPARE(player.currentTime(), item->duration());
    QCOMPARE(item->status(), MediaItem::Status::ReadyToPlay);
    QCOMPARE(item->presentationSize(), size);
    QCOMPARE(presentationSizeChanged.count(), size.isEmpty() ? 0 : 1);
    QCOMPARE(rateChanged.count(), 2);

    player.play();
    QCOMPARE(player.rate(), 1);
    QTRY_VERIFY(player.timeControlStatus() == Status::Playing);
    QVERIFY(player.currentTime() < 1);
    QVERIFY(playsPast(player, 0.2));
    QVERIFY(player.currentTime() < 1.5);
}

void TestMediaFormats::appliesPixelAspect()
{
    MediaPlayer player;
    const MediaItem *item = open(player, clipUrl(QStringLiteral("wide-pixels.mp4")));
    QTRY_VERIFY(item->presentationSize() == QSizeF(640, 180));
}

void TestMediaFormats::playsWhatIsThereOfATruncatedFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("mkv") << QStringLiteral("truncated.mkv");
    QTest::newRow("ts") << QStringLiteral("truncated.ts");
}

void TestMediaFormats::playsWhatIsThereOfATruncatedFile()
{
    QFETCH(const QString, name);
    MediaPlayer player;
    player.play();
    const MediaItem *item = open(player, clipUrl(name));
    QCOMPARE(settledStatus(item), MediaItem::Status::ReadyToPlay);
    QTRY_VERIFY(player.timeControlStatus() == Status::Playing);
    QTRY_VERIFY(player.rate() == 0);
    QCOMPARE(player.currentTime(), item->duration());
    QCOMPARE(item->status(), MediaItem::Status::ReadyToPlay);
}

void TestMediaFormats::refusesWhatIsNoMedia_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("truncated before the index") << clipPath(QStringLiteral("truncated.mp4"));
    QTest::newRow("empty") << clipPath(QStringLiteral("empty.mp4"));
    QTest::newRow("garbage") << clipPath(QStringLiteral("garbage.mp4"));
    QTest::newRow("a folder") << clipPath(QString());
    QTest::newRow("nothing there") << clipPath(QStringLiteral("nothing-there.mp4"));
    QTest::newRow("below a file") << clipPath(QStringLiteral("clip.mp4/clip.mp4"));
    QTest::newRow("/dev/null") << QStringLiteral("/dev/null");
    QTest::newRow("/dev/zero") << QStringLiteral("/dev/zero");
    QTest::newRow("root") << QStringLiteral("/");
    QTest::newRow("no permission") << QStringLiteral("/proc/1/mem");
    QTest::newRow("long name") << QLatin1Char('/') + QString(5000, QLatin1Char('a'));
}

void TestMediaFormats::refusesWhatIsNoMedia()
{
    QFETCH(const QString, path);
    MediaPlayer player;
    player.play();
    const MediaItem *item = open(player, QUrl::fromLocalFile(path));
    QCOMPARE(settledStatus(item), MediaItem::Status::Failed);
    QVERIFY(!item->errorText().isEmpty());
    QCOMPARE(item->duration(), 0);
    QCOMPARE(player.currentItem(), item);
    QCOMPARE(player.rate(), 1);
    QCOMPARE(player.timeControlStatus(), Status::WaitingToPlayAtSpecifiedRate);

    // What comes next plays.
    open(player, clipUrl(QStringLiteral("clip.mp4")));
    QVERIFY(playsPast(player, 0.1));
}

ZEPH_ENGINE_TEST_MAIN(TestMediaFormats)
#include "tst_media_formats.moc"
