// Media from servers, well-behaved and not.
#include "support/EngineTest.h"
#include "support/Patience.h"
#include "support/TestAuthority.h"
#include "support/TestServer.h"

#include <cmath>

using namespace zeph;
using Status = MediaPlayer::TimeControlStatus;

class TestNetwork : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void playsOverHttp();
    void seeksWithARangeRequest();
    void asksForWhatTheAddressNames();
    void followsARedirect();

    void trustsItsAuthority();
    void refusesAnInvalidCertificate_data();
    void refusesAnInvalidCertificate();
    void refusesAnInvalidCertificateOfASegment();
    void refusesAnInvalidCertificateAfterARedirect();

    void failsWithoutMedia_data();
    void failsWithoutMedia();
    void failsWhenRefused();
    void failsForAnUnknownHost();
    void endsWhereTheConnectionDoes();

    void letsGoOfAHangingServer_data();
    void letsGoOfAHangingServer();
    void canBeDestroyedWhileAServerHangs();
    void failsWhenAServerHangsTooLong();

private:
    static QString folder() { return clipPath(QString()); }

    std::unique_ptr<TestAuthority> m_authority;
    std::unique_ptr<TestServer> m_server;
};

void TestNetwork::initTestCase()
{
    m_authority = std::make_unique<TestAuthority>();
    qputenv("SSL_CERT_FILE", QFile::encodeName(m_authority->certificateFile()));
    m_server = std::make_unique<TestServer>(folder());
}

void TestNetwork::playsOverHttp()
{
    MediaPlayer player;
    player.play();
    const MediaItem *item = open(player, m_server->url(QStringLiteral("/clip.mp4")));
    QCOMPARE(settledStatus(item), MediaItem::Status::ReadyToPlay);
    QVERIFY(!item->isLive());
    QVERIFY(std::abs(item->duration() - 2) < 0.15);
    QTRY_VERIFY(player.timeControlStatus() == Status::Playing);
    QTRY_VERIFY(item->isPlaybackLikelyToKeepUp());
    QVERIFY(!item->isPlaybackBufferEmpty());
    QTRY_VERIFY(player.rate() == 0);
    QCOMPARE(player.currentTime(), item->duration());
}

void TestNetwork::seeksWithARangeRequest()
{
    MediaPlayer player;
    const MediaItem *item = open(player, m_server->url(QStringLiteral("/long.mp4")));
    QCOMPARE(settledStatus(item), MediaItem::Status::ReadyToPlay);
    // Its index is at its end, which has been asked for by itself.
    const QByteArray range = m_server->lastHeader(QStringLiteral("/long.mp4"), "Range");
    QVERIFY2(range.startsWith("bytes="), range.constData());
    player.play();
    QVERIFY(playsPast(player, 0));
    player.seek(25);
    QVERIFY(playsPast(player, 25));
}

void TestNetwork::asksForWhatTheAddressNames()
{
    m_server->serve(QStringLiteral("/ж é.mp3"), "nothing");
    MediaPlayer player;
    const MediaItem *item = open(player, m_server->url(QStringLiteral("/ж é.mp3")));
    QCOMPARE(settledStatus(item), MediaItem::Status::Failed);
    QVERIFY(m_server->requestCount(QStringLiteral("/ж é.mp3")) > 0);
}

void TestNetwork::followsARedirect()
{
    m_server->redirect(QStringLiteral("/moved.mp4"), "/clip.mp4");
    MediaPlayer player;
    player.play();
    open(player, m_server->url(QStringLiteral("/moved.mp4")));
    QVERIFY(playsPast(player, 0));
}

// ---- Certificates

void TestNetwork::trustsItsAuthority()
{
    const QString host = QStringLiteral("127.0.0.1");
    const TestServer server(folder(), m_authority->certify(host));
    MediaPlayer player;
    player.play();
    open(player, server.url(QStringLiteral("/clip.mp4"), host));
    QVERIFY(playsPast(player, 0));
}

void TestNetwork::refusesAnInvalidCertificate_data()
{
    QTest::addColumn<bool>("trustedAuthority");
    QTest::addColumn<QString>("certifiedHost");
    QTest::newRow("unknown authority") << false << QStringLiteral("127.0.0.1");
    QTest::newRow("other host") << true << QStringLiteral("example.org");
}

void TestNetwork::refusesAnInvalidCertificate()
{
    QFETCH(const bool, trustedAuthority);
    QFETCH(const QString, certifiedHost);
    TestAuthority stranger;
    TestAuthority &authority = trustedAuthority ? *m_authority : stranger;
    const TestServer server(folder(), authority.certify(certifiedHost));
    MediaPlayer player;
    player.play();
    open(player, server.url(QStringLiteral("/clip.mp4"), QStringLiteral("127.0.0.1")));
    QCOMPARE(settledStatus(player.currentItem()), MediaItem::Status::Failed);
    QCOMPARE(server.requestCount(QStringLiteral("/clip.mp4")), 0);
}

// What a list leads to is opened elsewhere than what an address leads to.
void TestNetwork::refusesAnInvalidCertificateOfASegment()
{
    TestAuthority stranger;
    const QString host = QStringLiteral("127.0.0.1");
    const TestServer segments(folder(), stranger.certify(host));
    const QByteArray segment = segments.url(QStringLiteral("/hls/index0.ts"), host).toEncoded();
    m_server->serve(QStringLiteral("/secure-segments.m3u8"),
        "#EXTM3U\n#EXT-X-TARGETDURATION:1\n#EXTINF:1,\n" + segment + "\n#EXT-X-ENDLIST\n",
        "application/vnd.apple.mpegurl");
    MediaPlayer player;
    player.play();
    const MediaItem *item = open(player, m_server->url(QStringLiteral("/secure-segments.m3u8")));
    QCOMPARE(settledStatus(item), MediaItem::Status::Failed);
    QCOMPARE(segments.requestCount(QStringLiteral("/hls/index0.ts")), 0);
}

void TestNetwork::refusesAnInvalidCertificateAfterARedirect()
{
    TestAuthority stranger;
    const QString host = QStringLiteral("127.0.0.1");
    const TestServer server(folder(), stranger.certify(host));
    m_server->redirect(QStringLiteral("/to-secure.mp4"),
        server.url(QStringLiteral("/clip.mp4"), host).toEncoded());
    MediaPlayer player;
    player.play();
    const MediaItem *item = open(player, m_server->url(QStringLiteral("/to-secure.mp4")));
    QCOMPARE(settledStatus(item), MediaItem::Status::Failed);
    QCOMPARE(server.requestCount(QStringLiteral("/clip.mp4")), 0);
}

// ---- Failures

void TestNetwork::failsWithoutMedia_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("404") << QStringLiteral("/nothing-there.mp4");
    QTest::newRow("garbage") << QStringLiteral("/garbage.mp4");
    QTest::newRow("empty") << QStringLiteral("/empty.mp4");
    QTest::newRow("truncated") << QStringLiteral("/truncated.mp4");
    QTest::newRow("empty list") << QStringLiteral("/empty.m3u8");
    QTest::newRow("web page") << QStringLiteral("/page.html");
}

void TestNetwork::failsWithoutMedia()
{
    QFETCH(const QString, path);
    m_server->serve(QStringLiteral("/empty.m3u8"), "#EXTM3U\n", "application/vnd.apple.mpegurl");
    m_server->serve(
        QStringLiteral("/page.html"), "<!doctype html><title>Hello</title>", "text/html");
    MediaPlayer player;
    player.play();
    const MediaItem *item = open(player, m_server->url(path));
    QCOMPARE(settledStatus(item), MediaItem::Status::Failed);
    QVERIFY(!item->errorText().isEmpty());
    QVERIFY(m_server->requestCount(path) > 0);
    QCOMPARE(player.rate(), 1);
    QCOMPARE(player.timeControlStatus(), Status::WaitingToPlayAtSpecifiedRate);
}

void TestNetwork::failsWhenRefused()
{
    TestServer server(folder());
    server.stop();
    MediaPlayer player;
    player.play();
    const MediaItem *item = open(player, server.url(QStringLiteral("/clip.mp4")));
    QCOMPARE(settledStatus(item), MediaItem::Status::Failed);

    server.start();
    player.pause();
    player.play();
    QVERIFY(playsPast(player, 0));
    QCOMPARE(item->status(), MediaItem::Status::ReadyToPlay);
}

void TestNetwork::failsForAnUnknownHost()
{
    MediaPlayer player;
    const MediaItem *item = open(player, QUrl(QStringLiteral("http://unknown.invalid/clip.mp4")));
    QCOMPARE(settledStatus(item), MediaItem::Status::Failed);
}

void TestNetwork::endsWhereTheConnectionDoes()
{
    TestServer server(folder());
    server.cutOff(QStringLiteral("/clip.mkv"), 60000);
    MediaPlayer player;
    player.play();
    const MediaItem *item = open(player, server.url(QStringLiteral("/clip.mkv")));
    QCOMPARE(settledStatus(item), MediaItem::Status::ReadyToPlay);
    QTRY_VERIFY(player.rate() == 0);
    QVERIFY(server.requestCount(QStringLiteral("/clip.mkv")) > 1);
    QCOMPARE(item->status(), MediaItem::Status::ReadyToPlay);
}

// ---- Hanging servers

void TestNetwork::letsGoOfAHangingServer_data()
{
    QTest::addColumn<QUrl>("next");
    QTest::newRow("for nothing") << QUrl();
    QTest::newRow("for a clip") << clipUrl(QStringLiteral("clip.mp4"));
}

void TestNetwork::letsGoOfAHangingServer()
{
    QFETCH(const QUrl, next);
    TestServer server(folder());
    const QString path = QStringLiteral("/hangs.mp4");
    server.hang(path);
    MediaPlayer player;
    player.play();
    open(player, server.url(path));
    QTRY_VERIFY(server.requestCount(path) == 1);
    if (next.isEmpty())
        player.replaceCurrentItem({});
    open(player, clipUrl(QStringLiteral("clip.mp4")));
    // Less than it takes for the hanging one to fail by itself.
    QTRY_VERIFY(player.timeControlStatus() == Status::Playing);
}

void TestNetwork::canBeDestroyedWhileAServerHangs()
{
    TestServer server(folder());
    const QString path = QStringLiteral("/hangs.mp4");
    server.hang(path);
    {
        MediaPlayer player;
        player.play();
        open(player, server.url(path));
        QTRY_VERIFY(server.requestCount(path) == 1);
    }
    // Had it waited for the server it would have tried again.
    QCOMPARE(server.requestCount(path), 1);
}

void TestNetwork::failsWhenAServerHangsTooLong()
{
    TestServer server(folder());
    const QString path = QStringLiteral("/hangs.mp4");
    server.hang(path);
    MediaPlayer player;
    player.play();
    const MediaItem *item = open(player, server.url(path));
    QTRY_COMPARE_WITH_TIMEOUT(item->status(), MediaItem::Status::Failed, 40000);
    QVERIFY(!item->errorText().isEmpty());
}

ZEPH_ENGINE_TEST_MAIN(TestNetwork)
#include "tst_network.moc"
