// Media that would have the player open what its user did not.
#include "support/EngineTest.h"
#include "support/FileOpenWatch.h"
#include "support/TestServer.h"

#include <QFile>
#include <QTemporaryDir>

using namespace zeph;
using Status = MediaPlayer::TimeControlStatus;

// What a stranger's address, list or file must not make the player do: play what is on the disk.
class TestUntrusted : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void noticesThatAFileIsOpened();
    void refusesEngineSchemes_data();
    void refusesEngineSchemes();
    void listReadsNoLocalFile_data();
    void listReadsNoLocalFile();
    void liveListReadsNoLocalFile();
    void redirectReadsNoLocalFile_data();
    void redirectReadsNoLocalFile();
    void localFileBringsNoOther();

private:
    QTemporaryDir m_folder;
    QString m_secret; ///< A video that is not for playing.
    std::unique_ptr<TestServer> m_server;
};

void TestUntrusted::initTestCase()
{
    m_secret = m_folder.filePath(QStringLiteral("secret.ts"));
    QVERIFY(QFile::copy(clipPath(QStringLiteral("clip.ts")), m_secret));
    m_server = std::make_unique<TestServer>(m_folder.path());
}

// The other tests say nothing if this fails.
void TestUntrusted::noticesThatAFileIsOpened()
{
    FileOpenWatch watch(m_secret);
    QVERIFY(!watch.wasOpened());
    MediaPlayer player;
    const MediaItem *item = open(player, QUrl::fromLocalFile(m_secret));
    QCOMPARE(settledStatus(item), MediaItem::Status::ReadyToPlay);
    QVERIFY(watch.wasOpened());
}

void TestUntrusted::refusesEngineSchemes_data()
{
    QTest::addColumn<QString>("address");
    for (const char *address : { "edl://%1", "edl://!mp4_dash;%1", "av://lavfi:testsrc",
             "av://lavfi:movie=%1", "lavf://file:%1", "lavf://%1", "ffmpeg://file:%1",
             "memory://%1", "hex://23", "fd://0", "fdclose://0", "mf://%1", "slice://0-1000000@%1",
             "archive://%1", "concat:%1", "subfile,,start,0,end,0,,:%1", "file:file:%1",
             "crypto:%1", "cache:%1", "async:%1", "pipe:0", "unix:%1" })
        QTest::newRow(address) << QString::fromUtf8(address);
}

void TestUntrusted::refusesEngineSchemes()
{
    QFETCH(const QString, address);
    FileOpenWatch watch(m_secret);
    MediaPlayer player;
    player.play();
    const QString filled = address.contains(QLatin1String("%1")) ? address.arg(m_secret) : address;
    // At once: the engine is not asked.
    QCOMPARE(open(player, QUrl(filled))->status(), MediaItem::Status::Failed);
    QVERIFY(!watch.wasOpened());
}

void TestUntrusted::listReadsNoLocalFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("fromServer");

    const auto hls = [](const QByteArray &lines) {
        return "#EXTM3U\n#EXT-X-VERSION:7\n#EXT-X-TARGETDURATION:2\n" + lines
            + "\n#EXT-X-ENDLIST\n";
    };
    const QList<std::tuple<const char *, const char *, QByteArray>> lists {
        { "segment by path", "list.m3u8", hls("#EXTINF:2,\n%1") },
        { "segment by address", "list.m3u8", hls("#EXTINF:2,\nfile://%1") },
        { "segment by protocol", "list.m3u8", hls("#EXTINF:2,\nfile:%1") },
        { "segment by name", "list.m3u8", hls("#EXTINF:2,\nsecret.ts") },
        { "segment by other protocols", "list.m3u8",
            hls("#EXTINF:2,\nconcat:%1\n#EXTINF:2,\nsubfile,,start,0,end,0,,:%1\n"
                "#EXTINF:2,\ncache:%1\n#EXTINF:2,\nasync:%1\n#EXTINF:2,\ncrypto:%1") },
        { "segment in the engine's schemes", "list.m3u8",
            hls("#EXTINF:2,\nedl://%1\n#EXTINF:2,\nlavf://file:%1\n#EXTINF:2,\nav://"
                "lavfi:movie=%1") },
        { "head of segments", "list.m3u8",
            hls("#EXT-X-MAP:URI=\"file://%1\"\n#EXTINF:2,\nmissing.ts") },
        { "key of segments", "list.m3u8",
            hls("#EXT-X-KEY:METHOD=AES-128,URI=\"file://%1\"\n#EXTINF:2,\nmissing.ts") },
        { "list of lists", "list.m3u8", "#EXTM3U\n#EXT-X-STREAM-INF:BANDWIDTH=1\nfile://%1\n" },
        { "sound of a list of lists", "list.m3u8",
            "#EXTM3U\n#EXT-X-MEDIA:TYPE=AUDIO,GROUP-ID=\"a\",NAME=\"a\",URI=\"file://%1\"\n"
            "#EXT-X-STREAM-INF:BANDWIDTH=1,AUDIO=\"a\"\nmissing.m3u8\n" },
        { "channel list", "list.m3u", "#EXTM3U\n#EXTINF:-1,Secret\n%1\n" },
        { "bare list", "list.m3u", "%1\n" },
        { "pls", "list.pls", "[playlist]\nFile1=%1\nNumberOfEntries=1\n" },
        { "cue", "list.cue", "FILE \"%1\" MP3\n  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n" },
        { "cue by name", "list.cue",
            "FILE \"secret.ts\" MP3\n  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n" },
        { "concatenation", "list.ffconcat", "ffconcat version 1.0\nfile '%1'\n" },
        { "concatenation by name", "list.ffconcat", "ffconcat version 1.0\nfile secret.ts\n" },
        { "concatenation by address", "list.ffconcat", "ffconcat version 1.0\nfile 'file:%1'\n" },
        { "edl", "list.edl", "# mpv EDL v0\n%1\n" },
        { "dash", "list.mpd",
            "<?xml version=\"1.0\"?><MPD xmlns=\"urn:mpeg:dash:schema:mpd:2011\" type=\"static\" "
            "mediaPresentationDuration=\"PT2S\" "
            "profiles=\"urn:mpeg:dash:profile:isoff-on-demand:2011\">"
            "<Period><AdaptationSet mimeType=\"video/mp2t\"><Representation id=\"1\" "
            "bandwidth=\"1\">"
            "<BaseURL>file://%1</BaseURL></Representation></AdaptationSet></Period></MPD>" },
        { "smil", "list.smil", "<smil><body><video src=\"file://%1\"/></body></smil>" },
        { "xspf", "list.xspf",
            "<?xml version=\"1.0\"?><playlist version=\"1\" "
            "xmlns=\"http://xspf.org/ns/0/\"><trackList>"
            "<track><location>file://%1</location></track></trackList></playlist>" },
    };
    for (const auto &[title, name, content] : lists) {
        for (const bool fromServer : { true, false })
            QTest::addRow("%s, %s", title, fromServer ? "from a server" : "from the disk")
                << QString::fromUtf8(name) << content << fromServer;
    }
}

void TestUntrusted::listReadsNoLocalFile()
{
    QFETCH(const QString, name);
    QFETCH(QByteArray, content);
    QFETCH(const bool, fromServer);
    content.replace("%1", QFile::encodeName(m_secret));

    QFile file(m_folder.filePath(name));
    QUrl url = QUrl::fromLocalFile(file.fileName());
    if (fromServer) {
        // The secret is this machine's, not the server's.
        m_server->serve(QLatin1Char('/') + name, content);
        m_server->serve(QStringLiteral("/secret.ts"), {});
        url = m_server->url(QLatin1Char('/') + name);
    } else {
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
    }

    FileOpenWatch watch(m_secret);
    MediaPlayer player;
    player.play();
    const MediaItem *item = open(player, url);
    const MediaItem::Status status = settledStatus(item);
    QVERIFY(!watch.wasOpened());
    QCOMPARE(status, MediaItem::Status::Failed);
    if (fromServer)
        QVERIFY(m_server->requestCount(QLatin1Char('/') + name) > 0);
}

// A live list may get better: it is asked for again and again.
void TestUntrusted::liveListReadsNoLocalFile()
{
    const QString path = QStringLiteral("/live.m3u8");
    m_server->serve(path,
        "#EXTM3U\n#EXT-X-TARGETDURATION:1\n#EXTINF:1,\nfile://" + QFile::encodeName(m_secret)
            + '\n');
    FileOpenWatch watch(m_secret);
    MediaPlayer player;
    player.play();
    const MediaItem *item = open(player, m_server->url(path));
    QTRY_VERIFY(m_server->requestCount(path) > 2);
    QVERIFY(!watch.wasOpened());
    QCOMPARE(item->status(), MediaItem::Status::Unknown);
}

void TestUntrusted::redirectReadsNoLocalFile_data()
{
    QTest::addColumn<QByteArray>("location");
    for (const char *location :
        { "file://%1", "file:%1", "edl://%1", "lavf://file:%1", "av://lavfi:testsrc", "concat:%1",
            "subfile,,start,0,end,0,,:%1", "cache:%1", "async:%1" })
        QTest::newRow(location) << QByteArray(location);
}

void TestUntrusted::redirectReadsNoLocalFile()
{
    QFETCH(QByteArray, location);
    location.replace("%1", QFile::encodeName(m_secret));
    m_server->redirect(QStringLiteral("/moved.ts"), location);
    FileOpenWatch watch(m_secret);
    MediaPlayer player;
    player.play();
    const MediaItem *item = open(player, m_server->url(QStringLiteral("/moved.ts")));
    const MediaItem::Status status = settledStatus(item);
    QVERIFY(!watch.wasOpened());
    QCOMPARE(status, MediaItem::Status::Failed);
    QVERIFY(m_server->requestCount(QStringLiteral("/moved.ts")) > 0);
}

// What lies beside a film under a like name is no part of it.
void TestUntrusted::localFileBringsNoOther()
{
    const QTemporaryDir folder;
    const QString film = folder.filePath(QStringLiteral("film.mkv"));
    QVERIFY(QFile::copy(clipPath(QStringLiteral("clip.mkv")), film));
    std::vector<std::unique_ptr<FileOpenWatch>> watches;
    for (const char *name : { "film.srt", "film.en.ass", "film.m4a", "film.mka", "film.cue",
             "film.jpg", "cover.jpg", "film.mkv.conf", "film.edl" }) {
        const QString path = folder.filePath(QString::fromUtf8(name));
        QVERIFY(QFile::copy(clipPath(QStringLiteral("clip.m4a")), path));
        watches.push_back(std::make_unique<FileOpenWatch>(path));
    }
    MediaPlayer player;
    player.play();
    open(player, QUrl::fromLocalFile(film));
    QVERIFY(playsPast(player, 0.3));
    for (const auto &watch : watches)
        QVERIFY(!watch->wasOpened());
}

ZEPH_ENGINE_TEST_MAIN(TestUntrusted)
#include "tst_untrusted.moc"
