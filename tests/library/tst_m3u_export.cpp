// The saved links as an M3U file.
#include "Library.h"
#include "library/M3UText.h"
#include "SavedLinks.h"
#include "sources/PlaylistParser.h"
#include "support/FullDisk.h"
#include "support/ReadOnlyFolder.h"

#include <QCoreApplication>
#include <QLocale>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>
#include <sys/stat.h>

using namespace zeph;

namespace {

using Fields = PlaylistEntry::Fields;

// The entry as it is after it was exported and read again.
QList<PlaylistEntry> readAgain(const QList<PlaylistEntry> &entries)
{
    return PlaylistParser::parse(PlaylistText::fromBytes(m3uText(entries)),
        QUrl(QStringLiteral("file:///home/me/list.m3u")));
}

QString randomText(QRandomGenerator &random, const QString &letters, int longest)
{
    QString text;
    for (int i = random.bounded(longest); i >= 0; --i)
        text += letters[random.bounded(letters.size())];
    return text;
}

QString cleaned(QString text)
{
    return text.replace(u'"', u'\'').replace(u'\r', u' ').replace(u'\n', u' ');
}

// What follows the first comma of the line is taken for the name, wherever that is. Nothing but
// blanks is no name, and the end of the address becomes it.
QString nameAfterwards(const QString &name, const QString &country, const QString &group)
{
    const QString line = QStringLiteral("\"%1\" tvg-logo=\"http://x/l.png\" tvg-country=\"%2\""
                                        " group-title=\"%3\",%1")
                             .arg(name, country, group);
    const QString title = line.sliced(line.indexOf(u',') + 1).trimmed();
    return title.isEmpty() ? QStringLiteral("a.m3u8") : title;
}

// Everything that comes back as it was.
PlaylistEntry randomEntry(QRandomGenerator &random)
{
    const QString letters =
        QStringLiteral("aZ09 '#=;:@&<>/\\|\u00e4\u0416\u0627\u0301\u200d\u202e\u4e2d[](){}");
    const QString upper = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    const QString path = QStringLiteral("azAZ09-_~!$&'()*+;=:@/");
    Fields fields = savedLinkFields(QStringLiteral("a"));
    const QString middle = randomText(random, letters, 30);
    fields.name = QStringLiteral("x") + middle + QStringLiteral("y");
    fields.url = address(
        QStringLiteral("http://h/") + randomText(random, path, 30) + QStringLiteral("?a,b"));
    if (random.bounded(2))
        fields.logoURL = address(QStringLiteral("https://x/") + randomText(random, path, 30));
    if (random.bounded(2))
        fields.groupTitle = u'(' + randomText(random, letters, 20) + u')';
    if (random.bounded(2))
        fields.countryCode = randomText(random, upper, 1) + randomText(random, upper, 1);
    return PlaylistEntry(fields);
}

} // namespace

class M3UExportTest : public QObject {
    Q_OBJECT

public:
    explicit M3UExportTest(const SmallDisk &disk) : m_disk(disk) { }

private Q_SLOTS:
    void init()
    {
        m_folder.emplace();
        m_library.emplace(m_folder->filePath(QStringLiteral("test.conf")));
        m_target = m_folder->filePath(QStringLiteral("list.m3u"));
        m_library->panels.answer = QUrl::fromLocalFile(m_target);
    }

    void cleanup() { m_library.reset(); }

    void writesTwoLinesForEachEntry_data()
    {
        QTest::addColumn<PlaylistEntry>("entry");
        QTest::addColumn<QByteArray>("lines");
        const auto row = [](const char *name, const QByteArray &lines,
                             const std::function<void(Fields &)> &change) {
            QTest::newRow(name) << savedLinkWith(change) << "#EXTM3U\n" + lines;
        };
        row("bare", "#EXTINF:-1 tvg-name=\"a\",a\nhttp://h/a.m3u8\n", [](Fields &) {});
        row("all",
            "#EXTINF:-1 tvg-name=\"a\" tvg-logo=\"http://x/l.png\" tvg-country=\"TR\""
            " group-title=\"News\",a\nhttp://h/a.m3u8\n",
            [](Fields &fields) {
                fields.logoURL = address(QStringLiteral("http://x/l.png"));
                fields.countryCode = QStringLiteral("TR");
                fields.groupTitle = QStringLiteral("News");
            });
        row("group", "#EXTINF:-1 tvg-name=\"a\" group-title=\"G\",a\nhttp://h/a.m3u8\n",
            [](Fields &fields) { fields.groupTitle = QStringLiteral("G"); });
        row("empty texts",
            "#EXTINF:-1 tvg-name=\"\" tvg-country=\"\" group-title=\"\",\nhttp://h/a.m3u8\n",
            [](Fields &fields) {
                fields.name.clear();
                fields.countryCode = QString();
                fields.groupTitle = QString();
            });
        row("quotes",
            "#EXTINF:-1 tvg-name=\"the 'A' TV\" tvg-country=\"'T\" group-title=\"''\",the 'A' TV\n"
            "http://h/a.m3u8\n",
            [](Fields &fields) {
                fields.name = QStringLiteral("the \"A\" TV");
                fields.countryCode = QStringLiteral("\"T");
                fields.groupTitle = QStringLiteral("\"'");
            });
        row("line breaks",
            "#EXTINF:-1 tvg-name=\"a  b c\" group-title=\" d\",a  b c\nhttp://h/a.m3u8\n",
            [](Fields &fields) {
                fields.name = QStringLiteral("a\r\nb\nc");
                fields.groupTitle = QStringLiteral("\nd");
            });
        row("letters",
            "#EXTINF:-1 tvg-name=\"\u0416\U0001f4fa, b\",\u0416\U0001f4fa, b\n"
            "http://h/a.m3u8\n",
            [](Fields &fields) { fields.name = QStringLiteral("\u0416\U0001f4fa, b"); });
        row("file", "#EXTINF:-1 tvg-name=\"a\",a\n/home/me/my \u0416.mp4\n", [](Fields &fields) {
            fields.url = address(QStringLiteral("file:///home/me/my%20%D0%96.mp4"));
        });
        row("file in capitals", "#EXTINF:-1 tvg-name=\"a\",a\n/a.mp4\n",
            [](Fields &fields) { fields.url = address(QStringLiteral("FILE:///a.mp4")); });
        row("file as logo",
            "#EXTINF:-1 tvg-name=\"a\" tvg-logo=\"file:///l%20o.png\",a\n"
            "http://h/a.m3u8\n",
            [](Fields &fields) { fields.logoURL = address(QStringLiteral("file:///l%20o.png")); });
        row("address as it was", "#EXTINF:-1 tvg-name=\"a\",a\nHTTP://Host/%7ea?x=1,2#y\n",
            [](Fields &fields) {
                fields.url = address(QStringLiteral("HTTP://Host/%7ea?x=1,2#y"));
            });
    }

    void writesTwoLinesForEachEntry()
    {
        QFETCH(PlaylistEntry, entry);
        QFETCH(QByteArray, lines);
        QCOMPARE(m3uText({ entry }), lines);
    }

    void writesInTheOrderOfTheList()
    {
        QCOMPARE(m3uText(savedLinks(QStringLiteral("x"), 2)),
            "#EXTM3U\n#EXTINF:-1 tvg-name=\"x0\",x0\nhttp://h/x0.m3u8\n"
            "#EXTINF:-1 tvg-name=\"x1\",x1\nhttp://h/x1.m3u8\n");
        QCOMPARE(m3uText({}), "#EXTM3U\n");
    }

    void isReadAsItWas()
    {
        QRandomGenerator random(17);
        for (int round = 0; round < 200; ++round) {
            QList<PlaylistEntry> entries;
            for (int i = random.bounded(20); i >= 0; --i)
                entries << randomEntry(random);
            const QList<PlaylistEntry> read = readAgain(entries);
            QCOMPARE(read.size(), entries.size());
            for (int i = 0; i < read.size(); ++i) {
                QVERIFY(read[i].id() != entries[i].id());
                QCOMPARE(read[i].name(), entries[i].name());
                QCOMPARE(read[i].address(), entries[i].address());
                QCOMPARE(read[i].logoURL(), entries[i].logoURL());
                QCOMPARE(read[i].logoAddress(), entries[i].logoAddress());
                QCOMPARE(read[i].groupTitle(), entries[i].groupTitle());
                QCOMPARE(read[i].countryCode(), entries[i].countryCode());
            }
        }
    }

    // What the format has no way to say is lost.
    void losesWhatListsCannotSay_data()
    {
        QTest::addColumn<PlaylistEntry>("entry");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("group");
        QTest::addColumn<QString>("country");
        const auto row = [](const char *description, const QString &name, const QString &group,
                             const QString &country, const std::function<void(Fields &)> &change) {
            QTest::newRow(description) << savedLinkWith(change) << name << group << country;
        };
        row("comma in the name", QStringLiteral("b\",a, b"), {}, {},
            [](Fields &fields) { fields.name = QStringLiteral("a, b"); });
        row("quotes in the name", QStringLiteral("the 'A'"), {}, {},
            [](Fields &fields) { fields.name = QStringLiteral("the \"A\""); });
        row("line break in the name", QStringLiteral("a b"), {}, {},
            [](Fields &fields) { fields.name = QStringLiteral("a\nb"); });
        row("blanks around the name", QStringLiteral("a"), {}, {},
            [](Fields &fields) { fields.name = QStringLiteral(" a "); });
        row("no name", QStringLiteral("#EXTINF:-1 tvg-name=\"\""), {}, {},
            [](Fields &fields) { fields.name.clear(); });
        row("comma in the group", QStringLiteral("d\",a"), QStringLiteral("c,d"), {},
            [](Fields &fields) { fields.groupTitle = QStringLiteral("c,d"); });
        row("empty group", QStringLiteral("a"), {}, {},
            [](Fields &fields) { fields.groupTitle = QString(); });
        row("blanks around the group", QStringLiteral("a"), QStringLiteral("c"), {},
            [](Fields &fields) { fields.groupTitle = QStringLiteral(" c "); });
        row("three letters", QStringLiteral("a"), {}, {},
            [](Fields &fields) { fields.countryCode = QStringLiteral("USA"); });
        row("lower case", QStringLiteral("a"), {}, QStringLiteral("TR"),
            [](Fields &fields) { fields.countryCode = QStringLiteral("tr"); });
        row("several", QStringLiteral("a"), {}, QStringLiteral("TR"),
            [](Fields &fields) { fields.countryCode = QStringLiteral("TR DE"); });
    }

    void losesWhatListsCannotSay()
    {
        QFETCH(PlaylistEntry, entry);
        QFETCH(QString, name);
        QFETCH(QString, group);
        QFETCH(QString, country);
        const QList<PlaylistEntry> read = readAgain({ entry });
        QCOMPARE(read.size(), 1);
        QCOMPARE(read[0].name(), name);
        QCOMPARE(read[0].groupTitle().value_or(QString()), group);
        QCOMPARE(read[0].countryCode().value_or(QString()), country);
        QCOMPARE(read[0].address(), entry.address());
    }

    void losesTheSameOfAnyLinks()
    {
        const QString letters = QStringLiteral("aZ ,\"'\r\n=;#\u00e4\u0416");
        const QList<std::pair<QString, QString>> countries { { QStringLiteral("TR"),
                                                                 QStringLiteral("TR") },
            { QStringLiteral("tr"), QStringLiteral("TR") },
            { QStringLiteral("us,de"), QStringLiteral("US") }, { QStringLiteral("USA"), {} },
            { QStringLiteral("\"R"), QStringLiteral("'R") }, { QString(), {} } };
        QRandomGenerator random(23);
        for (int round = 0; round < 2000; ++round) {
            const auto &[country, expectedCountry] = countries[random.bounded(countries.size())];
            const QString name = randomText(random, letters, 12);
            const QString group = randomText(random, letters, 12);
            const PlaylistEntry entry = savedLinkWith([&, country = country](Fields &fields) {
                fields.name = name;
                fields.groupTitle = group;
                fields.countryCode = country;
                fields.logoURL = address(QStringLiteral("http://x/l.png"));
            });
            const QList<PlaylistEntry> read = readAgain({ entry });
            QCOMPARE(read.size(), 1);
            QCOMPARE(read[0].address(), entry.address());
            QCOMPARE(read[0].logoAddress(), entry.logoAddress());
            QCOMPARE(read[0].countryCode().value_or(QString()), expectedCountry);
            QCOMPARE(read[0].groupTitle().value_or(QString()), cleaned(group).trimmed());
            QCOMPARE(
                read[0].name(), nameAfterwards(cleaned(name), cleaned(country), cleaned(group)));
        }
    }

    void readsFilesAgain()
    {
        const PlaylistEntry plain = savedLinkWith(
            [](Fields &fields) { fields.url = address(QStringLiteral("file:///home/me/a.mp4")); });
        QCOMPARE(readAgain({ plain }).value(0).address(), plain.address());
        // An address has no blanks, and a path is taken for one.
        const PlaylistEntry blank = savedLinkWith([](Fields &fields) {
            fields.url = address(QStringLiteral("file:///home/me/a%20b.mp4"));
        });
        QCOMPARE(readAgain({ blank }).size(), 0);
    }

    void asksWhereToPutIt()
    {
        m_library->panels.answer.reset();
        m_library->store.replaceEntries(savedLinks(QStringLiteral("x"), 2));
        m_library->store.exportLocalPlaylistAsM3U();
        QCOMPARE(m_library->panels.shownSavePanels.size(), 1);
        const SavePanel panel = m_library->panels.shownSavePanels.constFirst();
        QCOMPARE(panel.title, QStringLiteral("Export Local M3U Playlist"));
        QCOMPARE(panel.prompt, QStringLiteral("Export"));
        QCOMPARE(panel.extension, QStringLiteral("m3u"));
        const QRegularExpression name(QStringLiteral("^ZephPlayer \\d{4}-\\d\\d-\\d\\d\\.m3u$"));
        QVERIFY2(name.match(panel.suggestedName).hasMatch(), qPrintable(panel.suggestedName));
        // The user thought better of it.
        QVERIFY(!QFile::exists(m_target));
        QCOMPARE(m_library->model.toastMessage(), QString());
        QVERIFY(m_library->panels.warnings.isEmpty());
    }

    void namesTheFileAfterTheDay()
    {
        const QLocale before;
        const QDate day(2026, 11, 5);
        for (const char *locale : { "C", "en_US", "de_DE", "tr_TR" }) {
            QLocale::setDefault(QLocale(QString::fromUtf8(locale)));
            QCOMPARE(LocalM3UStore::defaultExportM3UFilename(day),
                QStringLiteral("ZephPlayer 2026-11-05.m3u"));
        }
        QLocale::setDefault(before);
    }

    void asksNothingWithoutLinks()
    {
        m_library->store.exportLocalPlaylistAsM3U();
        QVERIFY(m_library->panels.shownSavePanels.isEmpty());
        QVERIFY(!QFile::exists(m_target));
        QCOMPARE(m_library->model.toastMessage(), QString());
    }

    void writesTheFile()
    {
        m_library->store.replaceEntries(savedLinks(QStringLiteral("\u0416"), 3));
        m_library->store.exportLocalPlaylistAsM3U();
        QCOMPARE(contentOf(m_target), m3uText(m_library->store.entries()));
        QCOMPARE(m_library->model.toastMessage(), QStringLiteral("Exported: list.m3u"));
        QVERIFY(m_library->panels.warnings.isEmpty());
    }

    void replacesAFile()
    {
        QVERIFY(writeFile(m_target, QByteArray(100'000, 'x')));
        QVERIFY(QFile::setPermissions(m_target, QFile::ReadOwner | QFile::WriteOwner));
        const QString link = m_folder->filePath(QStringLiteral("link.m3u"));
        QVERIFY(QFile::link(m_target, link));
        m_library->panels.answer = QUrl::fromLocalFile(link);
        m_library->store.replaceEntries(savedLinks(QStringLiteral("x"), 3));
        m_library->store.exportLocalPlaylistAsM3U();
        QCOMPARE(contentOf(m_target), m3uText(m_library->store.entries()));
        QVERIFY(QFileInfo(link).isSymbolicLink());
        QVERIFY(!(QFile::permissions(m_target) & QFile::ReadOther));
        QCOMPARE(m_library->model.toastMessage(), QStringLiteral("Exported: link.m3u"));
    }

    void warnsWhereItMayNotWrite_data()
    {
        QTest::addColumn<QUrl>("target");
        const auto row = [](const char *name, const QString &path) {
            QTest::newRow(name) << QUrl::fromLocalFile(path);
        };
        row("a file in the way", QStringLiteral("/etc/passwd/list.m3u"));
        row("a folder that takes no files", QStringLiteral("/proc/list.m3u"));
        row("no such folder", QStringLiteral("/no/such/folder/list.m3u"));
        row("a folder", QDir::tempPath());
        QTest::newRow("another machine") << QUrl(QStringLiteral("sftp://h/list.m3u"));
    }

    void warnsWhereItMayNotWrite()
    {
        QFETCH(QUrl, target);
        const auto links = savedLinks(QStringLiteral("x"), 3);
        m_library->panels.answer = target;
        m_library->store.replaceEntries(links);
        m_library->store.exportLocalPlaylistAsM3U();
        QCOMPARE(m_library->panels.warnings.size(), 1);
        const WarningAlert warning = m_library->panels.warnings.constFirst();
        QCOMPARE(warning.message, QStringLiteral("Could Not Export M3U Playlist"));
        QVERIFY(!warning.informativeText.isEmpty());
        QVERIFY2(!warning.informativeText.contains(QStringLiteral("Unknown")),
            qPrintable(warning.informativeText));
        QCOMPARE(m_library->store.entries(), links);
        QCOMPARE(m_library->model.toastMessage(), QString());
        QCOMPARE(m_library->store.errorMessage(), QString());
    }

    void aFolderWithoutPermissionKeepsTheOldFile_data()
    {
        QTest::addColumn<bool>("isThere");
        QTest::newRow("old file") << true;
        QTest::newRow("no file") << false;
    }

    void aFolderWithoutPermissionKeepsTheOldFile()
    {
        QFETCH(bool, isThere);
        QVERIFY(!isThere || writeFile(m_target, "old"));
        const auto links = savedLinks(QStringLiteral("x"), 3);
        m_library->store.replaceEntries(links);
        {
            const ReadOnlyFolder folder(m_folder->path());
            m_library->store.exportLocalPlaylistAsM3U();
        }
        QCOMPARE(m_library->panels.warnings.size(), 1);
        const WarningAlert warning = m_library->panels.warnings.constFirst();
        QCOMPARE(warning.message, QStringLiteral("Could Not Export M3U Playlist"));
        QCOMPARE(warning.informativeText, qt_error_string(EACCES));
        QCOMPARE(QFile::exists(m_target), isThere);
        QCOMPARE(contentOf(m_target), isThere ? QByteArray("old") : QByteArray());
        QCOMPARE(m_library->store.entries(), links);
        QCOMPARE(m_library->model.toastMessage(), QString());
    }

    // With the rights of root it could be replaced, as a device could.
    void leavesWhatIsNoFile()
    {
        QCOMPARE(::mkfifo(QFile::encodeName(m_target).constData(), 0600), 0);
        m_library->store.replaceEntries(savedLinks(QStringLiteral("x"), 3));
        m_library->store.exportLocalPlaylistAsM3U();
        QCOMPARE(m_library->panels.warnings.size(), 1);
        struct stat target { };
        QCOMPARE(::lstat(QFile::encodeName(m_target).constData(), &target), 0);
        QVERIFY(S_ISFIFO(target.st_mode));
    }

    void aFullDiskKeepsTheOldFile_data() { FullDisk::addRows(); }

    void aFullDiskKeepsTheOldFile()
    {
        const FullDisk disk(m_disk);
        if (const char *reason = disk.reasonToSkip())
            QSKIP(reason);
        m_target = disk.place(m_target);
        const QByteArray old(100'000, 'x');
        QVERIFY(writeFile(m_target, old));
        const auto links = savedLinks(QStringLiteral("x"), 10'000);
        m_library->store.replaceEntries(links);
        m_library->panels.answer = QUrl::fromLocalFile(m_target);
        {
            const auto limit = disk.runFull();
            m_library->store.exportLocalPlaylistAsM3U();
        }
        QCOMPARE(m_library->panels.warnings.size(), 1);
        QCOMPARE(m_library->panels.warnings.constFirst().informativeText, disk.error());
        QCOMPARE(contentOf(m_target), old);
        QCOMPARE(QFileInfo(m_target).dir().entryList({ QStringLiteral("list*") }).size(), 1);
        QCOMPARE(m_library->store.entries(), links);
        QCOMPARE(m_library->model.toastMessage(), QString());
    }

    void aNewFileIsNotBegunOnAFullDisk()
    {
        m_library->store.replaceEntries(savedLinks(QStringLiteral("x"), 10'000));
        {
            const FileSizeLimit limit(1000);
            m_library->store.exportLocalPlaylistAsM3U();
        }
        QCOMPARE(m_library->panels.warnings.size(), 1);
        QVERIFY(!QFile::exists(m_target));
    }

private:
    const SmallDisk &m_disk;
    std::optional<QTemporaryDir> m_folder;
    std::optional<Library> m_library;
    QString m_target;
};

ZEPH_SMALL_DISK_TEST_MAIN(M3UExportTest)
#include "tst_m3u_export.moc"
