// Lists of channels from real servers.
#include "ChangeLog.h"
#include "player/PlayerModel.h"
#include "support/Patience.h"
#include "support/StandInPanels.h"
#include "support/TestAuthority.h"
#include "support/TestServer.h"

#include <QFile>
#include <QSignalSpy>
#include <QThreadPool>

#include <clocale>

using namespace zeph;

namespace {

const QString noAddresses =
    QStringLiteral("Could not open playlist: No playable address was found in the playlist.");
const QString one = QStringLiteral("/one.m3u");
const QString two = QStringLiteral("/two.m3u");

QUrl clip(const QString &name)
{
    return QUrl::fromLocalFile(qEnvironmentVariable("ZEPH_CLIPS") + u'/' + name);
}

QStringList texts(const char *names)
{
    return QString::fromLatin1(names).split(u' ');
}

QByteArray list(const QByteArray &names)
{
    QByteArray text = "#EXTM3U\n";
    for (const QByteArray &name : names.split(' '))
        text += "#EXTINF:-1," + name + "\n" + name + ".ts\n";
    return text;
}

QStringList names(const PlayerModel &model)
{
    QStringList names;
    for (const PlaylistEntry &entry : model.playlist())
        names << entry.name();
    return names;
}

} // namespace

#define WAIT_FOR_END_OF_LOADING(model) QTRY_VERIFY(!(model).isLoading())

class RemotePlaylistsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        std::setlocale(LC_NUMERIC, "C");
        m_authority = std::make_unique<TestAuthority>();
        qputenv("SSL_CERT_FILE", QFile::encodeName(m_authority->certificateFile()));
    }

    void init()
    {
        m_server = std::make_unique<TestServer>(QString());
        m_server->serve(one, list("A B"));
        m_server->serve(two, list("C"));
    }

    // ---- Lists

    void aListInAMarkdownLink()
    {
        PlayerModel model(m_panels);
        m_server->serve(QStringLiteral("/get.php"), list("A B C"));
        const QString address = m_server->url(QStringLiteral("/get.php")).toString();
        model.openRemote(QStringLiteral("[My list](%1?user=me&type=m3u_plus)").arg(address), {});
        QVERIFY(model.isLoading());
        WAIT_FOR_END_OF_LOADING(model);
        QCOMPARE(model.title(), QStringLiteral("IPTV Playlist"));
        QCOMPARE(names(model), texts("A B C"));
        QCOMPARE(model.playlist()[0].url(), m_server->url(QStringLiteral("/A.ts")));
        QCOMPARE(model.errorMessage(), QString());
    }

    void aListIsPublishedInOrder()
    {
        PlayerModel model(m_panels);
        model.openRemote(QStringLiteral("nonsense"), {});
        ChangeLog log(model);
        m_server->hold(one);
        model.openRemote(m_server->url(one).toString(), QStringLiteral(" My list "));
        log.write(QStringLiteral("returned"));
        QVERIFY(model.isLoading());
        m_server->letGo(one);
        WAIT_FOR_END_OF_LOADING(model);
        log.changes.removeDuplicates(); // It may arrive in several pieces.
        QCOMPARE(log.changes, texts("errorMessage isLoading returned loadedBytes playlist title"));
        QCOMPARE(model.title(), QStringLiteral("My list"));
        QCOMPARE(model.loadedBytes(), list("A B").size());
    }

    void loadingEndsAfterTheListIsThere()
    {
        PlayerModel model(m_panels);
        QStringList seen;
        connect(&model, &PlayerModel::isLoadingChanged, this, [&] {
            if (!model.isLoading())
                seen = names(model) << model.title();
        });
        model.openRemote(m_server->url(one).toString(), {});
        WAIT_FOR_END_OF_LOADING(model);
        QCOMPARE(seen, texts("A B") << QStringLiteral("IPTV Playlist"));
    }

    void whatPlaysGoesOnWhileAListLoads()
    {
        PlayerModel model(m_panels);
        model.play(clip(QStringLiteral("numbered-25.mp4")), QStringLiteral("Clip"), false);
        QTRY_VERIFY(model.currentTime() > 0.2);
        const QUuid load = model.mediaLoadID();
        m_server->hold(one);
        model.openRemote(m_server->url(one).toString(), {});
        const double time = model.currentTime();
        QTRY_VERIFY(model.currentTime() > time + 0.3);
        QCOMPARE(model.title(), QStringLiteral("Clip"));
        m_server->letGo(one);
        WAIT_FOR_END_OF_LOADING(model);
        QVERIFY(model.isPlaying());
        QCOMPARE(model.mediaLoadID(), load);
        QCOMPARE(model.currentURL(), clip(QStringLiteral("numbered-25.mp4")));
    }

    void aListTakesThePlaceOfAPage()
    {
        PlayerModel model(m_panels);
        model.openRemote(QStringLiteral("https://ok.ru/video/123456"), QStringLiteral("Video"));
        m_server->hold(one);
        model.openRemote(m_server->url(one).toString(), {});
        QVERIFY(!model.okVideoContent());
        QVERIFY(!model.youtubeContent());
        QVERIFY(!model.isPlaying());
        QCOMPARE(model.title(), QStringLiteral("Video"));
        m_server->letGo(one);
        WAIT_FOR_END_OF_LOADING(model);
    }

    void listsOverHttps()
    {
        TestServer secure(QString(), m_authority->certify(QStringLiteral("127.0.0.1")));
        secure.servePacked(one, list("S"));
        PlayerModel model(m_panels);
        model.openRemote(secure.url(one).toString(), {});
        WAIT_FOR_END_OF_LOADING(model);
        QCOMPARE(names(model), texts("S"));
    }

    void latin1()
    {
        m_server->serve(one, list("\xe9t\xe9"));
        PlayerModel model(m_panels);
        model.openRemote(m_server->url(one).toString(), {});
        WAIT_FOR_END_OF_LOADING(model);
        QCOMPARE(names(model), QStringList(QStringLiteral("été")));
    }

    // Where a redirect leads is the server's affair; what the user opened is the base.
    void relativeAddressesAreRelativeToTheAddressThatWasOpened()
    {
        m_server->redirect(QStringLiteral("/a/list.m3u"), "/b/list.m3u");
        m_server->serve(QStringLiteral("/b/list.m3u"), "1.ts\n");
        PlayerModel model(m_panels);
        model.openRemote(m_server->url(QStringLiteral("/a/list.m3u")).toString(), {});
        WAIT_FOR_END_OF_LOADING(model);
        QCOMPARE(model.playlist().value(0).url(), m_server->url(QStringLiteral("/a/1.ts")));
    }

    void failures_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<QString>("error");
        const QString badServer = QStringLiteral(
            "Could not open playlist: There was a bad response from the server (status %1).");
        QTest::newRow("204") << 204 << QByteArray() << noAddresses;
        QTest::newRow("304") << 304 << QByteArray() << badServer.arg(304);
        QTest::newRow("404") << 404 << list("A") << badServer.arg(404);
        QTest::newRow("500") << 500 << list("A") << badServer.arg(500);
        QTest::newRow("empty") << 200 << QByteArray() << noAddresses;
        QTest::newRow("no entries") << 200 << QByteArray("#EXTM3U\n") << noAddresses;
        QTest::newRow("web page") << 200 << QByteArray("<!doctype html>\n<p>Hello</p>\n")
                                  << noAddresses;
        QTest::newRow("binary") << 200 << QByteArray("\0\x01\x02\xff", 4) << noAddresses;
    }

    void failures()
    {
        QFETCH(const int, status);
        QFETCH(const QByteArray, body);
        QFETCH(const QString, error);
        m_server->serve(one, body);
        m_server->setStatus(one, status);
        PlayerModel model(m_panels);
        ChangeLog log(model);
        model.openRemote(m_server->url(one).toString(), QStringLiteral("My list"));
        QVERIFY(model.isLoading());
        WAIT_FOR_END_OF_LOADING(model);
        QCOMPARE(model.errorMessage(), error);
        QCOMPARE(model.title(), QStringLiteral("Zeph Player"));
        QVERIFY(model.playlist().isEmpty());
        log.changes.removeAll(QStringLiteral("loadedBytes"));
        QCOMPARE(log.changes, texts("isLoading errorMessage isLoading"));

        model.openRemote(m_server->url(two).toString(), {});
        QCOMPARE(model.errorMessage(), QString());
        WAIT_FOR_END_OF_LOADING(model);
        QCOMPARE(names(model), texts("C"));
    }

    void failsWithoutAServer()
    {
        m_server->stop();
        PlayerModel model(m_panels);
        model.openRemote(m_server->url(one).toString(), {});
        WAIT_FOR_END_OF_LOADING(model);
        QCOMPARE(
            model.errorMessage(), QStringLiteral("Could not open playlist: Connection refused"));
    }

    void failsWithoutAHost()
    {
        PlayerModel model(m_panels);
        model.openRemote(QStringLiteral("http:?type=m3u"), {});
        WAIT_FOR_END_OF_LOADING(model);
        QVERIFY(model.errorMessage().startsWith(QStringLiteral("Could not open playlist: ")));
    }

    void aListIsNothingToReplay()
    {
        PlayerModel model(m_panels);
        model.openRemote(m_server->url(one).toString(), {});
        WAIT_FOR_END_OF_LOADING(model);
        model.togglePlayback();
        QVERIFY(!model.isPlaying());
        QCOMPARE(model.toastMessage(),
            QStringLiteral("No media or URL is available. Open a file or enter a stream URL."));
    }

    // ---- Races

    void onlyTheSecondOfTwoRequestsCounts_data()
    {
        QTest::addColumn<bool>("firstAnswersFirst");
        QTest::newRow("first first") << true;
        QTest::newRow("second first") << false;
    }

    void onlyTheSecondOfTwoRequestsCounts()
    {
        QFETCH(const bool, firstAnswersFirst);
        m_server->hold(one);
        m_server->hold(two);
        PlayerModel model(m_panels);
        model.openRemote(m_server->url(one).toString(), QStringLiteral("One"));
        QTRY_COMPARE(m_server->requestCount(one), 1);
        model.openRemote(m_server->url(two).toString(), QStringLiteral("Two"));
        QTRY_COMPARE(m_server->requestCount(two), 1);
        QSignalSpy filled(&model, &PlayerModel::playlistChanged);
        if (firstAnswersFirst) {
            answer(one);
            QVERIFY(model.isLoading());
            QVERIFY(model.playlist().isEmpty());
            QCOMPARE(model.title(), QStringLiteral("Zeph Player"));
            answer(two);
        } else {
            answer(two);
            WAIT_FOR_END_OF_LOADING(model);
            answer(one);
        }
        WAIT_FOR_END_OF_LOADING(model);
        QCOMPARE(names(model), texts("C"));
        QCOMPARE(model.title(), QStringLiteral("Two"));
        QCOMPARE(model.errorMessage(), QString());
        QCOMPARE(filled.size(), 1);
        QCOMPARE(model.loadedBytes(), list("C").size());
    }

    void aRequestThatFailsLateChangesNothing()
    {
        m_server->serveStatus(one, 404);
        m_server->hold(one);
        m_server->hold(two);
        PlayerModel model(m_panels);
        model.openRemote(m_server->url(one).toString(), {});
        QTRY_COMPARE(m_server->requestCount(one), 1);
        model.openRemote(m_server->url(two).toString(), {});
        answer(one);
        QVERIFY(model.isLoading());
        QCOMPARE(model.errorMessage(), QString());
        answer(two);
        WAIT_FOR_END_OF_LOADING(model);
        QCOMPARE(model.errorMessage(), QString());
        QCOMPARE(names(model), texts("C"));
    }

    void theSameAddressTwice()
    {
        PlayerModel model(m_panels);
        QSignalSpy filled(&model, &PlayerModel::playlistChanged);
        model.openRemote(m_server->url(one).toString(), {});
        model.openRemote(m_server->url(one).toString(), {});
        WAIT_FOR_END_OF_LOADING(model);
        QTRY_COMPARE(m_server->answeredCount(one), 2);
        letAnswersArrive();
        QCOMPARE(filled.size(), 1);
        QCOMPARE(names(model), texts("A B"));
    }

    void manyRequestsInARow()
    {
        PlayerModel model(m_panels);
        for (int i = 0; i < 30; ++i) {
            model.openRemote(m_server->url(i % 2 ? one : two).toString(), QString::number(i));
            if (i % 7 == 0)
                QCoreApplication::processEvents();
        }
        WAIT_FOR_END_OF_LOADING(model);
        QCOMPARE(model.title(), QStringLiteral("29"));
        QCOMPARE(names(model), texts("A B"));
    }

    // ---- What else supersedes a request

    // A fetch that is under way is superseded by whatever the user enters next.
    void anAddressThatIsNoneEndsLoading()
    {
        PlayerModel model(m_panels);
        m_server->hold(one);
        model.openRemote(m_server->url(one).toString(), {});
        QVERIFY(model.isLoading());
        model.openRemote(QStringLiteral("nonsense"), {});
        QVERIFY(!model.isLoading());
        answer(one);
        QCOMPARE(model.errorMessage(), QStringLiteral("Enter a valid HTTP or HTTPS address."));
        QVERIFY(model.playlist().isEmpty());
    }

    void aStreamEndsLoadingAndEmptiesTheList()
    {
        PlayerModel model(m_panels);
        model.openRemote(m_server->url(one).toString(), {});
        WAIT_FOR_END_OF_LOADING(model);
        m_server->hold(two);
        model.openRemote(m_server->url(two).toString(), {});
        QVERIFY(model.playlist().isEmpty());
        model.openRemote(QStringLiteral("http://127.0.0.1:9/a.mp4"), QStringLiteral("Stream"));
        QVERIFY(!model.isLoading());
        answer(two);
        QVERIFY(model.playlist().isEmpty());
        QCOMPARE(model.title(), QStringLiteral("Stream"));
    }

    void aPageEndsLoading()
    {
        PlayerModel model(m_panels);
        m_server->hold(one);
        model.openRemote(m_server->url(one).toString(), {});
        model.openRemote(QStringLiteral("https://youtu.be/dQw4w9WgXcQ"), QString());
        QVERIFY(!model.isLoading());
        answer(one);
        QVERIFY(model.playlist().isEmpty());
        QCOMPARE(model.title(), QStringLiteral("Zeph Player"));
        QVERIFY(model.youtubeContent());
    }

    // ---- Clearing

    void clearingWhileLoading()
    {
        m_server->hold(one);
        PlayerModel model(m_panels);
        model.openRemote(m_server->url(one).toString(), {});
        QTRY_COMPARE(m_server->requestCount(one), 1);
        model.clearNetworkStream();
        QVERIFY(!model.isLoading());
        answer(one);
        QVERIFY(!model.isLoading());
        QVERIFY(model.playlist().isEmpty());
        QCOMPARE(model.title(), QStringLiteral("Zeph Player"));
        QCOMPARE(model.errorMessage(), QString());
    }

    void clearingWhileAListIsRead()
    {
        const QByteArray longList = list("A") + QByteArray("1.ts\n").repeated(300'000);
        m_server->serve(one, longList);
        PlayerModel model(m_panels);
        model.openRemote(m_server->url(one).toString(), {});
        QTRY_COMPARE(model.loadedBytes(), longList.size());
        QVERIFY(model.isLoading());
        model.clearNetworkStream();
        letAnswersArrive();
        QVERIFY(model.playlist().isEmpty());
        QVERIFY(!model.isLoading());
    }

    void clearingForgetsEverythingFromTheNetwork()
    {
        PlayerModel model(m_panels);
        model.openRemote(m_server->url(one).toString(), {});
        WAIT_FOR_END_OF_LOADING(model);
        model.play(
            QUrl(QStringLiteral("http://127.0.0.1:9/a.ts")), QStringLiteral("Channel"), true);
        model.clearNetworkStream();
        QVERIFY(model.playlist().isEmpty());
        QVERIFY(!model.player()->currentItem());
        QVERIFY(!model.isPlaying());
        QVERIFY(!model.isLiveStream());
        QCOMPARE(model.title(), QStringLiteral("Zeph Player"));
        model.togglePlayback();
        QVERIFY(!model.isPlaying());
        QVERIFY(!model.toastMessage().isEmpty());

        model.openRemote(QStringLiteral("nonsense"), {});
        model.clearNetworkStream();
        QCOMPARE(model.errorMessage(), QString());
    }

    // ---- Ends

    void theModelMayGoAtAnyTime()
    {
        const QByteArray longList = QByteArray("1.ts\n").repeated(300'000);
        m_server->serve(one, longList);
        { // before anything was sent
            PlayerModel model(m_panels);
            model.openRemote(m_server->url(one).toString(), {});
        }
        { // while the server is silent
            m_server->hold(two);
            PlayerModel model(m_panels);
            model.openRemote(m_server->url(two).toString(), {});
            QTRY_COMPARE(m_server->requestCount(two), 1);
        }
        { // while the list is read
            PlayerModel model(m_panels);
            model.openRemote(m_server->url(one).toString(), {});
            QTRY_COMPARE(model.loadedBytes(), longList.size());
        }
        letAnswersArrive();
    }

private:
    /// Lets the server answer, and waits until the model has had its chance to act on it.
    void answer(const QString &path)
    {
        const int before = m_server->answeredCount(path);
        m_server->letGo(path);
        QTRY_COMPARE(m_server->answeredCount(path), before + 1);
        letAnswersArrive();
    }

    // A later request of another model has been answered and read: so has everything before it.
    void letAnswersArrive()
    {
        const QString path = QStringLiteral("/last.m3u");
        m_server->serve(path, list("last"));
        PlayerModel model(m_panels);
        model.openRemote(m_server->url(path).toString(), {});
        QTRY_VERIFY(!model.isLoading());
        QTRY_COMPARE(QThreadPool::globalInstance()->activeThreadCount(), 0);
        QCoreApplication::processEvents();
    }

    StandInPanels m_panels;
    std::unique_ptr<TestAuthority> m_authority;
    std::unique_ptr<TestServer> m_server;
};

QTEST_GUILESS_MAIN(RemotePlaylistsTest)
#include "tst_remote_playlists.moc"
