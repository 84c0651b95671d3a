// Streams that have no list of parts, live and not.
#include "support/EngineTest.h"
#include "support/LiveStream.h"
#include "support/Patience.h"

using namespace zeph;
using Status = MediaPlayer::TimeControlStatus;

// Streams that come by other ways than the web.
class TestStreams : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void plays_data();
    void plays();
    void waitsWhileNobodySends();
    void letsGoOfAServerThatDoesNotSpeak();
};

void TestStreams::plays_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QStringList>("output");

    // Those that listen take one client, and end with it.
    const auto add = [](const char *name, const QString &address, const QString &output) {
        const int port = freePort();
        QTest::newRow(name) << address.arg(port) << output.arg(port).split(QLatin1Char(' '));
    };
    add("udp", QStringLiteral("udp://127.0.0.1:%1"),
        QStringLiteral("-f mpegts udp://127.0.0.1:%1?pkt_size=1316"));
    add("rtp", QStringLiteral("rtp://127.0.0.1:%1"),
        QStringLiteral("-f rtp_mpegts rtp://127.0.0.1:%1"));
    add("rtmp", QStringLiteral("rtmp://127.0.0.1:%1/live/stream"),
        QStringLiteral("-f flv -listen 1 rtmp://127.0.0.1:%1/live/stream"));
    add("srt", QStringLiteral("srt://127.0.0.1:%1"),
        QStringLiteral("-f mpegts srt://127.0.0.1:%1?mode=listener"));
}

void TestStreams::plays()
{
    QFETCH(const QString, address);
    QFETCH(const QStringList, output);
    const LiveStream stream(output);
    MediaPlayer player;
    player.play();
    const MediaItem *item = open(player, QUrl(address));
    // A sender that does not listen yet is a failure, and worth another try.
    for (int attempt = 0; attempt < 20; ++attempt) {
        if (settledStatus(item) == MediaItem::Status::ReadyToPlay)
            break;
        QTest::qWait(200);
        player.pause();
        player.play();
    }
    QVERIFY(playsPast(player, 0));
    QVERIFY(item->isLive());
    QCOMPARE(item->duration(), 0);
    QTRY_VERIFY(item->presentationSize() == QSizeF(320, 180));
    QVERIFY(playsPast(player, player.currentTime() + 1));
}

void TestStreams::waitsWhileNobodySends()
{
    const int port = freePort();
    MediaPlayer player;
    player.play();
    open(player, QUrl(QStringLiteral("udp://127.0.0.1:%1").arg(port)));
    QTest::qWait(1000);
    QCOMPARE(player.timeControlStatus(), Status::WaitingToPlayAtSpecifiedRate);
    const LiveStream stream(QStringLiteral("-f mpegts udp://127.0.0.1:%1?pkt_size=1316")
                                .arg(port)
                                .split(QLatin1Char(' ')));
    QVERIFY(playsPast(player, 0));
    // Removed while it plays, it is not waited for.
    player.replaceCurrentItem({});
    open(player, clipUrl(QStringLiteral("clip.mp4")));
    QTRY_VERIFY(player.timeControlStatus() == Status::Playing);
}

void TestStreams::letsGoOfAServerThatDoesNotSpeak()
{
    const int port = freePort();
    for (const char *address :
        { "udp://127.0.0.1:%1", "rtp://127.0.0.1:%1", "srt://127.0.0.1:%1" }) {
        MediaPlayer player;
        player.play();
        open(player, QUrl(QString::fromUtf8(address).arg(port)));
        QTest::qWait(300);
        open(player, clipUrl(QStringLiteral("clip.mp4")));
        QVERIFY2(playsPast(player, 0), address);
    }
}

ZEPH_ENGINE_TEST_MAIN(TestStreams)
#include "tst_streams.moc"
