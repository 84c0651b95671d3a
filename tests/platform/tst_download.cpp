// Downloads from a real server, over HTTP and HTTPS.
#include "platform/Download.h"
#include "support/Patience.h"
#include "support/TestAuthority.h"
#include "support/TestServer.h"

#include <QElapsedTimer>
#include <QFile>
#include <QScopeGuard>
#include <QSignalSpy>

using namespace std::chrono_literals;
using namespace zeph;

namespace {

struct Outcome {
    bool succeeded = false;
    QByteArray body;
    QString error;
};

Outcome download(const QUrl &url, DownloadLimits limits = {})
{
    Download download(url, limits);
    QSignalSpy succeeded(&download, &Download::succeeded);
    QSignalSpy failed(&download, &Download::failed);
    const auto ended = [&] { return !succeeded.isEmpty() || !failed.isEmpty(); };
    if (ended())
        return { false, {}, QStringLiteral("ended within the constructor") };
    if (!QTest::qWaitFor(ended, patience))
        return { false, {}, QStringLiteral("did not end") };
    // Nothing comes after the end.
    QCoreApplication::processEvents();
    if (succeeded.size() + failed.size() != 1)
        return { false, {}, QStringLiteral("ended twice") };
    return { !succeeded.isEmpty(), download.takeBody(), failed.value(0).value(0).toString() };
}

const QByteArray list = "#EXTM3U\n#EXTINF:-1,One\nhttp://h/1.ts\n";
const QString cannotUnpack = QStringLiteral("The server's answer could not be unpacked.");
const QString path = QStringLiteral("/list.m3u");
const QString host = QStringLiteral("127.0.0.1");

} // namespace

#define VERIFY_BODY(outcome, expected)                                                             \
    do {                                                                                           \
        const Outcome result = outcome;                                                            \
        QVERIFY2(result.succeeded, qPrintable(result.error));                                      \
        QCOMPARE(result.body, expected);                                                           \
    } while (false)

#define VERIFY_FAILS(outcome, expectedError)                                                       \
    do {                                                                                           \
        const Outcome result = outcome;                                                            \
        QVERIFY(!result.succeeded);                                                                \
        QCOMPARE(result.error, QString(expectedError));                                            \
        QVERIFY(result.body.isEmpty());                                                            \
    } while (false)

class DownloadTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_authority = std::make_unique<TestAuthority>();
        qputenv("SSL_CERT_FILE", QFile::encodeName(m_authority->certificateFile()));
    }

    void init() { m_server = std::make_unique<TestServer>(QString()); }

    void productLimits()
    {
        QCOMPARE(DownloadLimits().silence, 20s);
        QCOMPARE(DownloadLimits().size, 536'870'912);
    }

    void fetchesABody()
    {
        m_server->serve(path, list);
        VERIFY_BODY(download(m_server->url(path)), list);
        QCOMPARE(m_server->requestCount(path), 1);
    }

    void everyByteComesThroughAsItIs()
    {
        QByteArray bytes;
        for (int i = 0; i < 300'000; ++i)
            bytes += static_cast<char>(i * 7 + i / 256);
        m_server->serve(path, bytes);
        VERIFY_BODY(download(m_server->url(path)), bytes);
        m_server->servePacked(path, bytes);
        VERIFY_BODY(download(m_server->url(path)), bytes);
    }

    void anEmptyBodyIsOne()
    {
        m_server->serve(path, QByteArray());
        VERIFY_BODY(download(m_server->url(path)), QByteArray());
        m_server->serveStatus(path, 204);
        VERIFY_BODY(download(m_server->url(path)), QByteArray());
    }

    void chunks()
    {
        m_server->serveChunks(path, { "#EXT", "M3U", "\n" });
        VERIFY_BODY(download(m_server->url(path)), "#EXTM3U\n");
    }

    void packed()
    {
        m_server->servePacked(path, list.repeated(10'000));
        VERIFY_BODY(download(m_server->url(path)), list.repeated(10'000));
        QVERIFY(m_server->lastHeader(path, "Accept-Encoding").contains("gzip"));
    }

    // Qt itself takes a body that grows this much for an attack.
    void packedVeryTightly()
    {
        const QByteArray blanks(20 << 20, ' ');
        m_server->servePacked(path, blanks);
        VERIFY_BODY(download(m_server->url(path)), blanks);
    }

    void packedButBroken()
    {
        m_server->serve(path, "no gzip at all");
        m_server->addHeader(path, "Content-Encoding", "gzip");
        VERIFY_FAILS(download(m_server->url(path)), cannotUnpack);
        m_server->addHeader(path, "Content-Encoding", "something new");
        VERIFY_FAILS(download(m_server->url(path)), cannotUnpack);
    }

    void tellsHowMuchHasArrived()
    {
        m_server->stallAfter(path, list);
        Download download(m_server->url(path));
        QSignalSpy progress(&download, &Download::receivedBytesChanged);
        QCOMPARE(download.receivedBytes(), 0);
        QTRY_COMPARE(download.receivedBytes(), list.size());
        QVERIFY(!progress.isEmpty());
    }

    // ---- Redirects

    void followsRedirects_data()
    {
        QTest::addColumn<int>("status");
        for (const int status : { 301, 302, 303, 307, 308 })
            QTest::addRow("%d", status) << status;
    }

    void followsRedirects()
    {
        QFETCH(const int, status);
        m_server->redirect(QStringLiteral("/1"), "/2", status);
        m_server->redirect(
            QStringLiteral("/2"), m_server->url(QStringLiteral("/3")).toEncoded(), status);
        m_server->redirect(QStringLiteral("/3"), "list.m3u", status);
        m_server->serve(path, list);
        VERIFY_BODY(download(m_server->url(QStringLiteral("/1"))), list);
    }

    void followsARedirectToHttps()
    {
        TestServer secure(QString(), m_authority->certify(host));
        secure.serve(path, list);
        m_server->redirect(path, secure.url(path).toEncoded());
        VERIFY_BODY(download(m_server->url(path)), list);
    }

    void neverFollowsARedirectFromHttpsToHttp()
    {
        TestServer secure(QString(), m_authority->certify(host));
        m_server->serve(path, list);
        secure.redirect(path, m_server->url(path).toEncoded());
        const Outcome outcome = download(secure.url(path));
        QVERIFY(!outcome.succeeded);
        QVERIFY(!outcome.error.isEmpty());
        QCOMPARE(m_server->requestCount(path), 0);
    }

    void doesNotFollowRedirectsForEver()
    {
        m_server->redirect(QStringLiteral("/1"), "/2");
        m_server->redirect(QStringLiteral("/2"), "/1");
        const Outcome outcome = download(m_server->url(QStringLiteral("/1")));
        QVERIFY(!outcome.succeeded);
        QVERIFY(!outcome.error.isEmpty());
        QVERIFY(m_server->requestCount(QStringLiteral("/1")) < 100);
    }

    void followsNoRedirectOutOfTheWeb_data()
    {
        QTest::addColumn<QByteArray>("location");
        QTest::newRow("file") << QByteArray("file:///etc/hostname");
        QTest::newRow("data") << QByteArray("data:,hello");
        QTest::newRow("nowhere") << QByteArray("");
    }

    void followsNoRedirectOutOfTheWeb()
    {
        QFETCH(const QByteArray, location);
        m_server->redirect(path, location);
        const Outcome outcome = download(m_server->url(path));
        QVERIFY(!outcome.succeeded);
        QVERIFY(!outcome.error.isEmpty());
        QVERIFY(outcome.body.isEmpty());
    }

    // ---- What the server refuses

    void failsOnABadStatus_data()
    {
        QTest::addColumn<int>("status");
        for (const int status : { 300, 304, 400, 401, 403, 404, 410, 429, 500, 503 })
            QTest::addRow("%d", status) << status;
    }

    void failsOnABadStatus()
    {
        QFETCH(const int, status);
        m_server->serveStatus(path, status);
        VERIFY_FAILS(download(m_server->url(path)),
            QStringLiteral("There was a bad response from the server (status %1).").arg(status));
    }

    void signsInAsTheAddressSays()
    {
        m_server->serveTo(path, "some one", "p@ss", list);
        QUrl url = m_server->url(path);
        url.setUserName(QStringLiteral("some one"));
        url.setPassword(QStringLiteral("p@ss"));
        VERIFY_BODY(download(url), list);
        url.setPassword(QStringLiteral("wrong"));
        VERIFY_FAILS(download(url),
            QStringLiteral("There was a bad response from the server (status 401)."));
    }

    void failsWhenNobodyListens()
    {
        m_server->stop();
        VERIFY_FAILS(download(m_server->url(path)), QStringLiteral("Connection refused"));
    }

    void failsForAnUnknownHost()
    {
        VERIFY_FAILS(download(QUrl(QStringLiteral("http://unknown.invalid/list.m3u"))),
            QStringLiteral("Host unknown.invalid not found"));
    }

    void failsForAnAddressOutOfTheWeb_data()
    {
        QTest::addColumn<QUrl>("url");
        QTest::newRow("file") << QUrl(QStringLiteral("file:///etc/hostname"));
        QTest::newRow("data") << QUrl(QStringLiteral("data:,hello"));
        QTest::newRow("none") << QUrl();
        QTest::newRow("relative") << QUrl(QStringLiteral("a/b"));
        QTest::newRow("no host") << QUrl(QStringLiteral("http:///list.m3u"));
    }

    void failsForAnAddressOutOfTheWeb()
    {
        QFETCH(const QUrl, url);
        const Outcome outcome = download(url);
        QVERIFY(!outcome.succeeded);
        QVERIFY(!outcome.error.isEmpty());
        QVERIFY(outcome.body.isEmpty());
    }

    // Several times: the end may come before or after Qt has noticed that the answer began.
    void failsWhenTheBodyIsCutShort()
    {
        m_server->serveCutOff(path, list.repeated(1000), 5000);
        for (int i = 0; i < 100; ++i) {
            const Outcome outcome = download(m_server->url(path));
            QVERIFY(!outcome.succeeded);
            QVERIFY(!outcome.error.isEmpty());
            QVERIFY(outcome.body.isEmpty());
        }
    }

    // A connection that ends before Qt has noticed that the answer began, as it may on a machine of
    // its own, ends a chunked answer for it. So the end comes later here.
    void failsWhenChunksAreCutShort()
    {
        m_server->stallAfter(path, list, list);
        Download download(m_server->url(path));
        QSignalSpy succeeded(&download, &Download::succeeded);
        QSignalSpy failed(&download, &Download::failed);
        QTRY_COMPARE(download.receivedBytes(), list.size());
        m_server->release();
        QTRY_COMPARE(failed.size(), 1);
        QVERIFY(!failed[0][0].toString().isEmpty());
        QCOMPARE(succeeded.size(), 0);
        QVERIFY(download.takeBody().isEmpty());
    }

    // ---- Certificates

    void trustsItsAuthority()
    {
        TestServer secure(QString(), m_authority->certify(host));
        secure.servePacked(path, list);
        VERIFY_BODY(download(secure.url(path)), list);
    }

    void refusesAnInvalidCertificate_data()
    {
        QTest::addColumn<bool>("trustedAuthority");
        QTest::addColumn<QString>("certifiedHost");
        QTest::newRow("unknown authority") << false << host;
        QTest::newRow("other host") << true << QStringLiteral("example.org");
    }

    void refusesAnInvalidCertificate()
    {
        QFETCH(const bool, trustedAuthority);
        QFETCH(const QString, certifiedHost);
        TestAuthority stranger;
        TestAuthority &authority = trustedAuthority ? *m_authority : stranger;
        TestServer secure(QString(), authority.certify(certifiedHost));
        secure.serve(path, list);
        const Outcome outcome = download(secure.url(path));
        QVERIFY(!outcome.succeeded);
        QVERIFY2(outcome.error.startsWith(QStringLiteral("SSL handshake failed")),
            qPrintable(outcome.error));
        QCOMPARE(secure.requestCount(path), 0);
    }

    // Those of the system stay untrusted when the user names others, and no file is no authority.
    void anEmptyAuthorityFileTrustsNobody()
    {
        const QByteArray before = qgetenv("SSL_CERT_FILE");
        qputenv("SSL_CERT_FILE", "/nowhere/at all.pem");
        const auto restore = qScopeGuard([&] { qputenv("SSL_CERT_FILE", before); });
        TestServer secure(QString(), m_authority->certify(host));
        secure.serve(path, list);
        QVERIFY(!download(secure.url(path)).succeeded);
        QCOMPARE(secure.requestCount(path), 0);
    }

    // ---- Time

    void timesOutWithoutAHeader()
    {
        m_server->hang(path);
        VERIFY_FAILS(
            download(m_server->url(path), { 200ms }), QStringLiteral("The request timed out."));
    }

    void timesOutWithinABody()
    {
        m_server->stallAfter(path, list);
        VERIFY_FAILS(
            download(m_server->url(path), { 500ms }), QStringLiteral("The request timed out."));
    }

    void timesOutWhileConnecting()
    {
        // A server that takes connections but does not speak TLS, nor anything else.
        m_server->hang(path);
        QUrl url = m_server->url(path);
        url.setScheme(QStringLiteral("https"));
        const Outcome outcome = download(url, { 500ms });
        QVERIFY(!outcome.succeeded);
    }

    void everyByteResetsTheTimeOut()
    {
        m_server->serveChunks(path, QList<QByteArray>(30, "#"), 100ms);
        QElapsedTimer elapsed;
        elapsed.start();
        VERIFY_BODY(download(m_server->url(path), { 1500ms }), QByteArray(30, '#'));
        QVERIFY(elapsed.elapsed() > 1500);
    }

    // ---- Size

    void takesABodyOfExactlyTheLimit()
    {
        m_server->serve(path, QByteArray(1000, ' '));
        VERIFY_BODY(download(m_server->url(path), { 20s, 1000 }), QByteArray(1000, ' '));
    }

    void refusesABodyThatSaysItIsTooLarge()
    {
        m_server->serve(path, QByteArray((2 << 20) + 1, ' '));
        VERIFY_FAILS(download(m_server->url(path), { 20s, 2 << 20 }),
            QStringLiteral("The file is larger than 2 MiB."));
    }

    void refusesAnEndlessBody()
    {
        m_server->serveEndlessly(path, QByteArray(10'000, ' '));
        VERIFY_FAILS(download(m_server->url(path), { 20s, 2 << 20 }),
            QStringLiteral("The file is larger than 2 MiB."));
    }

    void refusesAPackedBodyThatUnpacksToTooMuch()
    {
        m_server->servePacked(path, QByteArray(64 << 20, ' '));
        VERIFY_FAILS(download(m_server->url(path), { 20s, 2 << 20 }),
            QStringLiteral("The file is larger than 2 MiB."));
    }

    void refusesAnEndlessErrorPage()
    {
        m_server->serveEndlessly(path, QByteArray(10'000, ' '));
        m_server->setStatus(path, 500);
        VERIFY_FAILS(download(m_server->url(path)),
            QStringLiteral("There was a bad response from the server (status 500)."));
    }

    // ---- Ends

    void canBeDestroyedAtAnyTime()
    {
        m_server->serveEndlessly(path, QByteArray(10'000, ' '));
        {
            Download early(m_server->url(path));
        }
        {
            Download late(m_server->url(path));
            QTRY_VERIFY(late.receivedBytes() > 0);
        }
        m_server->hang(path);
        {
            const int before = m_server->requestCount(path);
            Download hanging(m_server->url(path));
            QTRY_COMPARE(m_server->requestCount(path), before + 1);
        }
        QCoreApplication::processEvents();
    }

private:
    std::unique_ptr<TestAuthority> m_authority;
    std::unique_ptr<TestServer> m_server;
};

QTEST_GUILESS_MAIN(DownloadTest)
#include "tst_download.moc"
