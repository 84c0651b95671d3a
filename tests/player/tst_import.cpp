// Lists of channels from files.
#include "ChangeLog.h"
#include "player/PlayerModel.h"
#include "support/Patience.h"
#include "support/StandInPanels.h"
#include "support/TestServer.h"

#include <QFile>
#include <QTemporaryDir>

#include <sys/stat.h>

using namespace zeph;

namespace {

const QByteArray list = "#EXTM3U\n#EXTINF:-1,One\nlive/1.ts\n#EXTINF:-1,Two\nhttp://h/2.ts\n";
const QString failed = QStringLiteral("Could not import playlist: ");

} // namespace

class ImportTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_panels.answer.reset();
        m_panels.shown.clear();
    }

    void asksForAList()
    {
        PlayerModel model(m_panels);
        ChangeLog log(model);
        QVERIFY(!model.importLocalM3U(QString()));
        QCOMPARE(m_panels.shown.size(), 1);
        QCOMPARE(m_panels.shown[0].title, QStringLiteral("Import M3U Playlist"));
        QCOMPARE(m_panels.shown[0].prompt, QStringLiteral("Import"));
        QCOMPARE(m_panels.shown[0].extensions,
            QStringList({ QStringLiteral("m3u"), QStringLiteral("m3u8"), QStringLiteral("txt") }));
        QVERIFY(log.changes.isEmpty());
    }

    void imports()
    {
        m_panels.answer = file(QStringLiteral("My list.1.m3u"), list);
        PlayerModel model(m_panels);
        ChangeLog log(model);
        const auto entries = model.importLocalM3U(QString());
        QVERIFY(entries);
        QCOMPARE(*entries, model.playlist());
        QCOMPARE(entries->size(), 2);
        QCOMPARE(entries->at(0).name(), QStringLiteral("One"));
        QCOMPARE(entries->at(0).url(), file(QStringLiteral("live/1.ts")));
        QCOMPARE(entries->at(1).url(), QUrl(QStringLiteral("http://h/2.ts")));
        QCOMPARE(model.title(), QStringLiteral("My list.1"));
        QCOMPARE(log.changes, QStringList({ QStringLiteral("playlist"), QStringLiteral("title") }));
    }

    void opensAFileWithoutAsking()
    {
        PlayerModel model(m_panels);
        model.openPlaylistFile(file(QStringLiteral("My list.1.m3u"), list));
        QVERIFY(model.isLoading());
        QTRY_VERIFY(!model.isLoading());
        QCOMPARE(model.playlist().size(), 2);
        QCOMPARE(model.playlist().at(0).url(), file(QStringLiteral("live/1.ts")));
        QCOMPARE(model.title(), QStringLiteral("My list.1"));
        QCOMPARE(model.errorMessage(), QString());
        QVERIFY(m_panels.shown.isEmpty());

        model.openPlaylistFile(file(QStringLiteral("empty.m3u"), {}));
        QTRY_VERIFY(!model.isLoading());
        QCOMPARE(model.errorMessage(),
            QStringLiteral(
                "Could not open playlist: No playable address was found in the playlist."));
        QVERIFY(model.playlist().isEmpty());

        model.openPlaylistFile(QUrl::fromLocalFile(QStringLiteral("/none.m3u")));
        QVERIFY(!model.isLoading());
        QVERIFY(model.errorMessage().startsWith(QStringLiteral("Could not open playlist: ")));
    }

    void titles_data()
    {
        QTest::addColumn<QString>("fileName");
        QTest::addColumn<QString>("displayName");
        QTest::addColumn<QString>("title");
        QTest::newRow("name") << "a.m3u"
                              << " My name\n"
                              << "My name";
        QTest::newRow("blank name") << "a.m3u"
                                    << " \n"
                                    << "a";
        QTest::newRow("no extension") << "a"
                                      << ""
                                      << "a";
        QTest::newRow("odd name") << "100%25 #1?.txt"
                                  << ""
                                  << "100%25 #1?";
        QTest::newRow("hidden") << ".m3u"
                                << ""
                                << ".m3u";
    }

    void titles()
    {
        QFETCH(const QString, fileName);
        QFETCH(const QString, displayName);
        m_panels.answer = file(fileName, list);
        PlayerModel model(m_panels);
        QVERIFY(model.importLocalM3U(displayName));
        QTEST(model.title(), "title");
    }

    void latin1()
    {
        m_panels.answer = file(QStringLiteral("a.m3u"), "#EXTINF:-1,\xe9t\xe9\nhttp://h/1.ts");
        PlayerModel model(m_panels);
        QVERIFY(model.importLocalM3U(QString()));
        QCOMPARE(model.playlist()[0].name(), QStringLiteral("été"));
    }

    void failures_data()
    {
        QTest::addColumn<QUrl>("url");
        QTest::addColumn<QString>("error");
        const QString empty =
            failed + QStringLiteral("No playable address was found in the playlist.");
        QTest::newRow("empty") << file(QStringLiteral("empty.m3u"), "") << empty;
        QTest::newRow("no entries") << file(QStringLiteral("none.m3u"), "#EXTM3U\n") << empty;
        QTest::newRow("missing") << file(QStringLiteral("missing.m3u"))
                                 << failed + QStringLiteral("No such file or directory");
        const QString noFile = failed + QStringLiteral("It is not a file.");
        QTest::newRow("folder") << QUrl::fromLocalFile(m_folder.path()) << noFile;
        QTest::newRow("pipe") << pipe() << noFile;
        QTest::newRow("not local") << QUrl(QStringLiteral("http://h/a.m3u")) << failed;
        QTest::newRow("too large")
            << hugeFile() << failed + QStringLiteral("The file is larger than 512 MiB.");
    }

    void failures()
    {
        QFETCH(const QUrl, url);
        QFETCH(const QString, error); // The rest of some is the system's own.
        PlayerModel model(m_panels);
        m_panels.answer = file(QStringLiteral("a.m3u"), list);
        QVERIFY(model.importLocalM3U(QString()));
        m_panels.answer = url;
        ChangeLog log(model);
        QVERIFY(!model.importLocalM3U(QStringLiteral("A name")));
        QVERIFY2(model.errorMessage().startsWith(error), qPrintable(model.errorMessage()));
        QVERIFY(model.errorMessage().size() > failed.size());
        QVERIFY(model.playlist().isEmpty());
        QCOMPARE(model.title(), QStringLiteral("a"));
        QCOMPARE(log.changes,
            QStringList({ QStringLiteral("playlist"), QStringLiteral("errorMessage") }));

        m_panels.answer = file(QStringLiteral("a.m3u"), list);
        QVERIFY(model.importLocalM3U(QString()));
        QCOMPARE(model.errorMessage(), QString());
    }

    void supersedesAListThatLoads()
    {
        TestServer server { QString() };
        const QString path = QStringLiteral("/list.m3u");
        server.serve(path, "1.ts\n");
        server.hold(path);
        PlayerModel model(m_panels);
        model.openRemote(server.url(path).toString(), QStringLiteral("From the network"));
        QTRY_COMPARE(server.requestCount(path), 1);

        QVERIFY(!model.importLocalM3U(QString())); // cancelled: nothing has happened
        QVERIFY(model.isLoading());

        m_panels.answer = file(QStringLiteral("a.m3u"), list);
        QVERIFY(model.importLocalM3U(QString()));
        QVERIFY(!model.isLoading());
        server.letGo(path);
        QTRY_COMPARE(server.answeredCount(path), 1);
        PlayerModel later(m_panels);
        later.openRemote(server.url(path).toString(), QString());
        QTRY_COMPARE(later.playlist().size(), 1);
        QCOMPARE(model.playlist().size(), 2);
        QCOMPARE(model.title(), QStringLiteral("a"));
    }

private:
    QUrl file(const QString &name) const { return QUrl::fromLocalFile(m_folder.filePath(name)); }

    QUrl file(const QString &name, const QByteArray &bytes) const
    {
        QFile file(m_folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("%s", qPrintable(file.errorString()));
        return QUrl::fromLocalFile(file.fileName());
    }

    QUrl pipe() const
    {
        QUrl url = file(QStringLiteral("pipe.m3u"));
        if (::mkfifo(QFile::encodeName(url.toLocalFile()).constData(), 0600) != 0)
            qFatal("There is no pipe");
        return url;
    }

    // Takes no room on the disk.
    QUrl hugeFile() const
    {
        QUrl url = file(QStringLiteral("huge.m3u"), list);
        if (!QFile::resize(url.toLocalFile(), (qint64 { 512 } << 20) + 1))
            qFatal("The file cannot be made that large");
        return url;
    }

    QTemporaryDir m_folder;
    StandInPanels m_panels;
};

QTEST_GUILESS_MAIN(ImportTest)
#include "tst_import.moc"
