// The saved links: what changes do to the list, and what of it is stored.
#include "Library.h"
#include "platform/SettingsText.h"
#include "SavedLinks.h"
#include "sources/PlaylistEntryJson.h"
#include "support/FullDisk.h"
#include "support/Patience.h"
#include "support/ReadOnlyFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QThread>

#include <cerrno>

using namespace zeph;

namespace {

using Fields = PlaylistEntry::Fields;

// The text of a settings file with `json` stored in it.
QByteArray settingsWith(const QByteArray &json)
{
    return settingsToText({ { LocalM3UStore::defaultsKey(), json } });
}

// What the settings file holds, read without the help of any cache.
std::optional<QList<PlaylistEntry>> storedEntries(const QString &file)
{
    const QVariant json = settingsFromText(contentOf(file)).value(LocalM3UStore::defaultsKey());
    return playlistFromJson(json.toByteArray());
}

PlaylistEntry entryWith(const std::function<void(Fields &)> &change)
{
    Fields fields = savedLinkFields(QStringLiteral("a"));
    change(fields);
    return PlaylistEntry(fields);
}

PlaylistEntry entryCalled(const QString &name, const QString &url)
{
    return entryWith([&](Fields &fields) {
        fields.name = name;
        fields.url = address(url);
    });
}

} // namespace

class LocalM3UStoreTest : public QObject {
    Q_OBJECT

public:
    explicit LocalM3UStoreTest(const SmallDisk &disk) : m_disk(disk) { }

private Q_SLOTS:
    void init();

    void startsWithNothing();
    void storesEveryChange();
    void storesReadableJson();
    void leavesWhatItCannotRead_data();
    void leavesWhatItCannotRead();
    void readsOddLists_data();
    void readsOddLists();
    void readsHalfASurrogatePair();
    void readsAMillionEntries();

    void savesAtTheFront();
    void savesWhatIsNamedAfterItsAddress_data();
    void savesWhatIsNamedAfterItsAddress();
    void savesTheSameAddressOnce();
    void savesNothingWithoutAddress();
    void showsToastsForAWhile();
    void adds();
    void updatesInPlace();
    void updatesOnlyWhatIsThere();
    void removesById();
    void clears();
    void replacesTheWholeList();
    void aNewListOfNothingChangesNothing();
    void importsAFileInPlaceOfTheList();
    void importsNothingWhenTheUserCancels();
    void importsNothingThatCannotBeRead_data();
    void importsNothingThatCannotBeRead();
    void containsAddressesLetterByLetter();
    void containsWhatTheListHolds();
    void mayBeChangedByItsObservers();

    void keepsWhatCannotBeStored_data();
    void keepsWhatCannotBeStored();
    void keepsWhatAReadOnlyFolderDoesNotTake_data();
    void keepsWhatAReadOnlyFolderDoesNotTake();
    void tellsOfAFullDisk_data();
    void tellsOfAFullDisk();

    void takesOverWhatAnotherWindowSaved();
    void keepsItsOwnWhenTheStoredListIsLost();
    void processesDoNotLoseEachOthersLinks();
    void aKilledProcessLeavesAWholeList();

private:
    const SmallDisk &m_disk;
    std::optional<QTemporaryDir> m_folder;
    QString m_file;
};

void LocalM3UStoreTest::init()
{
    m_folder.emplace();
    QVERIFY(m_folder->isValid());
    m_file = m_folder->filePath(QStringLiteral("test.conf"));
}

void LocalM3UStoreTest::startsWithNothing()
{
    Library library(m_file);
    QCOMPARE(LocalM3UStore::defaultsKey(), QStringLiteral("ZephPlayer.LocalM3U.SavedEntries"));
    QVERIFY(library.store.entries().isEmpty());
    QCOMPARE(library.store.errorMessage(), QString());
    QVERIFY(!library.store.contains(savedLink(QStringLiteral("a"))));
    QVERIFY(!QFile::exists(m_file));
}

void LocalM3UStoreTest::storesEveryChange()
{
    Library library(m_file);
    LocalM3UStore &store = library.store;
    QSignalSpy changes(&store, &LocalM3UStore::entriesChanged);
    int expected = 0;
    const auto isStored = [&] {
        return storedEntries(m_file) == store.entries()
            && Library(m_file).store.entries() == store.entries() && changes.size() == ++expected;
    };
    store.saveToLocalM3U(savedLink(QStringLiteral("a")));
    QVERIFY(isStored());
    store.add(savedLinkFields(QStringLiteral("b")));
    QVERIFY(isStored());
    Fields fields = savedLinkFields(QStringLiteral("c"));
    fields.id = store.entries().constFirst().id();
    store.update(fields);
    QVERIFY(isStored());
    store.remove(store.entries().constLast());
    QVERIFY(isStored());
    store.clear();
    QVERIFY(isStored());
    store.replaceEntries(savedLinks(QStringLiteral("d"), 3));
    QVERIFY(isStored());
    QVERIFY(QFile::remove(m_file));
    store.persist();
    QCOMPARE(storedEntries(m_file), store.entries());
}

void LocalM3UStoreTest::storesReadableJson()
{
    Library library(m_file);
    const PlaylistEntry full = entryWith([](Fields &fields) {
        fields.name = QStringLiteral("\u0416 \"A\"");
        fields.logoURL = address(QStringLiteral("http://x/l.png"));
        fields.groupTitle = QStringLiteral("News");
        fields.countryCode = QStringLiteral("TR");
    });
    const PlaylistEntry bare = savedLink(QStringLiteral("b"));
    library.store.replaceEntries({ full, bare });
    const auto json = library.defaults.text(QStringLiteral("ZephPlayer.LocalM3U.SavedEntries"));
    QVERIFY(json);
    QVERIFY(contentOf(m_file).contains("\u0416"));
    const auto text = [](const QString &value) { return QJsonValue(value); };
    const QJsonArray expected {
        QJsonObject { { QStringLiteral("id"), full.id().toString(QUuid::WithoutBraces) },
            { QStringLiteral("name"), text(full.name()) },
            { QStringLiteral("url"), QStringLiteral("http://h/a.m3u8") },
            { QStringLiteral("logoURL"), QStringLiteral("http://x/l.png") },
            { QStringLiteral("groupTitle"), QStringLiteral("News") },
            { QStringLiteral("countryCode"), QStringLiteral("TR") } },
        QJsonObject { { QStringLiteral("id"), bare.id().toString(QUuid::WithoutBraces) },
            { QStringLiteral("name"), QStringLiteral("b") },
            { QStringLiteral("url"), QStringLiteral("http://h/b.m3u8") } },
    };
    QCOMPARE(QJsonDocument::fromJson(*json).array(), expected);
}

void LocalM3UStoreTest::leavesWhatItCannotRead_data()
{
    QTest::addColumn<QByteArray>("content");
    const auto json = [](const char *name, const QByteArray &text) {
        QTest::newRow(name) << settingsWith(text);
    };
    const auto raw = [](const char *name, const QByteArray &value) {
        QTest::newRow(name) << "[General]\nZephPlayer.LocalM3U.SavedEntries=" + value + '\n';
    };
    const QByteArray good = playlistEntryToJson(savedLink(QStringLiteral("a")));
    json("nothing", "");
    json("no JSON", "abc");
    json("half of it", ('[' + good + ']').chopped(10));
    json("more than it", '[' + good + "] x");
    json("object", good);
    json("null", "null");
    json("number", "5");
    json("text", "\"a\"");
    json("numbers", "[1, 2]");
    json("one is no entry", '[' + good + ",{}]");
    json("one is null", '[' + good + ",null]");
    json("no address", R"([{"id":"0d0cd8d0-0fe5-4b8b-9b4c-2f6a2f0c5a11","name":"a"}])");
    json("bad id", R"([{"id":"1","name":"a","url":"http://h/a"}])");
    json("number as name",
        R"([{"id":"0d0cd8d0-0fe5-4b8b-9b4c-2f6a2f0c5a11","name":1,"url":"http://h/a"}])");
    json("deep", QByteArray(100'000, '['));
    json("no UTF-8", "[\"\xff\xfe\"]");
    raw("list", "a, b");
    raw("number of another kind", "@Size(3 4)");
    raw("4 GB of bytes", R"(@Variant(\0\0\0\f\xff\xff\xff\xfe))");
    raw("4 GB of text", R"(@Variant(\0\0\0\n\xff\xff\xff\xfe))");
    raw("4 GB of list", R"(@Variant(\0\0\0\t\xff\xff\xff\xfe))");
    raw("open quote", R"("[{\"id\")");
    QTest::newRow("no settings") << QByteArrayLiteral("\x7f"
                                                      "ELF\0\1\2\3\n\0\n=\n[\n]\n");
    QTest::newRow("zeros") << QByteArray(100'000, '\0');
}

void LocalM3UStoreTest::leavesWhatItCannotRead()
{
    QFETCH(QByteArray, content);
    QVERIFY(writeFile(m_file, content));
    Library library(m_file);
    QVERIFY(library.store.entries().isEmpty());
    QCOMPARE(library.store.errorMessage(), QString());
    library.store.exportLocalPlaylistAsM3U();
    library.store.update(savedLinkFields(QStringLiteral("b")));
    library.store.remove(savedLink(QStringLiteral("b")));
    library.store.replaceEntries({});
    QCOMPARE(contentOf(m_file), content);

    library.store.add(savedLinkFields(QStringLiteral("b")));
    QCOMPARE(library.names(), QStringList(QStringLiteral("b")));
    QCOMPARE(storedEntries(m_file), library.store.entries());
}

void LocalM3UStoreTest::readsOddLists_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QStringList>("names");
    const auto entry = [](const QByteArray &name, const QByteArray &more = {}) {
        return R"({"id":"0d0cd8d0-0fe5-4b8b-9b4c-2f6a2f0c5a11","name":")" + name
            + R"(","url":"http://h/a")" + more + '}';
    };
    QTest::newRow("nothing in it") << QByteArray("[]") << QStringList();
    QTest::newRow("blanks") << " [\n" + entry("a") + "\t] \n" << QStringList(QStringLiteral("a"));
    QTest::newRow("other keys") << '[' + entry("a", R"(,"x":[1,{"y":null}],"URL":1)") + ']'
                                << QStringList(QStringLiteral("a"));
    QTest::newRow("same ids and addresses") << '[' + entry("a") + ',' + entry("b")
            + ']' << QStringList({ QStringLiteral("a"), QStringLiteral("b") });
    QTest::newRow("odd letters")
        << '[' + entry("\u202e\u0627\u0301\u200d\U0001f4fa\ufeff\ufffe\\u0000\\n") + ']'
        << QStringList(QStringLiteral("\u202e\u0627\u0301\u200d\U0001f4fa\ufeff\ufffe")
               + QChar(u'\0') + u'\n');
    QTest::newRow("long name") << '[' + entry(QByteArray(1'000'000, 'x')) + ']'
                               << QStringList(QString(1'000'000, u'x'));
}

void LocalM3UStoreTest::readsOddLists()
{
    QFETCH(QByteArray, json);
    QFETCH(QStringList, names);
    QVERIFY(writeFile(m_file, settingsWith(json)));
    Library library(m_file);
    QCOMPARE(library.names(), names);
    QCOMPARE(contentOf(m_file), settingsWith(json));
    // Another one does not spoil them.
    library.store.add(savedLinkFields(QStringLiteral("new")));
    QCOMPARE(Library(m_file).names(), QStringList(QStringLiteral("new")) + names);
}

// Which is no letter, and becomes some other one.
void LocalM3UStoreTest::readsHalfASurrogatePair()
{
    const QByteArray json = "[{\"id\":\"0d0cd8d0-0fe5-4b8b-9b4c-2f6a2f0c5a11\","
                            "\"name\":\"\\ud83d\",\"url\":\"http://h/a\"}]";
    QVERIFY(writeFile(m_file, settingsWith(json)));
    const Library library(m_file);
    QCOMPARE(library.names().size(), 1);
    QCOMPARE(library.names().constFirst().size(), 1);
}

void LocalM3UStoreTest::readsAMillionEntries()
{
    constexpr int count = 1'000'000;
    QByteArray json = "[";
    for (int i = 0; i < count; ++i) {
        const QByteArray number = QByteArray::number(i);
        json += R"({"id":"0d0cd8d0-0fe5-4b8b-9b4c-2f6a2f0c5a11","name":")" + number
            + R"(","url":"http://h/)" + number + "\"},";
    }
    json.back() = ']';
    QVERIFY(writeFile(m_file, settingsWith(json)));
    const Library library(m_file);
    QCOMPARE(library.store.entries().size(), count);
    QCOMPARE(library.store.entries().constLast().name(), QStringLiteral("999999"));
    QVERIFY(library.store.contains(address(QStringLiteral("http://h/777777"))));
}

void LocalM3UStoreTest::savesAtTheFront()
{
    Library library(m_file);
    library.store.replaceEntries(savedLinks(QStringLiteral("old"), 2));
    const PlaylistEntry entry = entryWith([](Fields &fields) {
        fields.name = QStringLiteral("\u2003 A TV\n");
        fields.logoURL = address(QStringLiteral("logo.png"));
        fields.groupTitle = QStringLiteral(" News ");
        fields.countryCode = QStringLiteral("tr");
    });
    library.store.saveToLocalM3U(entry);
    QCOMPARE(library.store.entries().size(), 3);
    const PlaylistEntry saved = library.store.entries().constFirst();
    QVERIFY(!saved.id().isNull());
    QVERIFY(saved.id() != entry.id());
    QCOMPARE(saved.name(), QStringLiteral("A TV"));
    QCOMPARE(saved.address(), entry.address());
    QCOMPARE(saved.logoAddress(), entry.logoAddress());
    QCOMPARE(saved.groupTitle(), entry.groupTitle());
    QCOMPARE(saved.countryCode(), entry.countryCode());
    QCOMPARE(library.model.toastMessage(), QStringLiteral("Saved to Local M3U: A TV"));
}

void LocalM3UStoreTest::savesWhatIsNamedAfterItsAddress_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<QString>("name");
    const auto row = [](const char *url, const char *name) {
        QTest::newRow(url) << QString::fromUtf8(url) << QString::fromUtf8(name);
    };
    row("http://h/live/one.m3u8", "one");
    row("http://h/my%20show.m3u8?x=a.b/c", "my show");
    row("http://h/one.two.ts", "one.two");
    row("http://h/one", "one");
    row("http://h/one.ts/", "one");
    row("http://h/.m3u8", ".m3u8");
    row("http://h/one.", "one");
    row("http://h/%D0%96.ts", "\u0416");
    row("http://h/%FF.ts", "%FF");
    row("http://h", "");
    row("http://h/", "");
    row("file:///home/me/one.mp4", "one");
}

void LocalM3UStoreTest::savesWhatIsNamedAfterItsAddress()
{
    QFETCH(QString, url);
    QFETCH(QString, name);
    Library library(m_file);
    library.store.saveToLocalM3U(entryCalled(QStringLiteral(" \u00a0\n\u2029\ufeff"), url));
    QCOMPARE(library.names(), QStringList(name));
    QCOMPARE(library.model.toastMessage(), QStringLiteral("Saved to Local M3U: ") + name);
}

void LocalM3UStoreTest::savesTheSameAddressOnce()
{
    Library library(m_file);
    LocalM3UStore &store = library.store;
    const QString url = QStringLiteral("http://h/x");
    store.saveToLocalM3U(entryCalled(QStringLiteral("one"), url));
    const QUuid firstId = store.entries().constFirst().id();
    store.saveToLocalM3U(savedLink(QStringLiteral("other")));
    store.saveToLocalM3U(entryCalled(QStringLiteral("two"), url));
    QCOMPARE(library.names(), QStringList({ QStringLiteral("two"), QStringLiteral("other") }));
    QVERIFY(store.entries().constFirst().id() != firstId);
    // Letter by letter.
    store.saveToLocalM3U(entryCalled(QStringLiteral("three"), QStringLiteral("HTTP://h/x")));
    store.saveToLocalM3U(entryCalled(QStringLiteral("four"), QStringLiteral("http://h/x/")));
    QCOMPARE(store.entries().size(), 4);
    // Of several that came in with a list, the first one goes.
    store.replaceEntries({ savedLink(QStringLiteral("a")), entryCalled(QStringLiteral("one"), url),
        entryCalled(QStringLiteral("two"), url), savedLink(QStringLiteral("b")) });
    store.saveToLocalM3U(entryCalled(QStringLiteral("three"), url));
    QCOMPARE(library.names(),
        QStringList({ QStringLiteral("three"), QStringLiteral("a"), QStringLiteral("two"),
            QStringLiteral("b") }));
}

void LocalM3UStoreTest::savesNothingWithoutAddress()
{
    Library library(m_file);
    library.store.saveToLocalM3U(PlaylistEntry());
    QVERIFY(library.store.entries().isEmpty());
    QCOMPARE(library.model.toastMessage(), QString());
}

void LocalM3UStoreTest::showsToastsForAWhile()
{
    Library library(m_file);
    QElapsedTimer time;
    time.start();
    library.store.saveToLocalM3U(savedLink(QStringLiteral("a")));
    QCOMPARE(library.model.toastMessage(), QStringLiteral("Saved to Local M3U: a"));
    QTRY_COMPARE(library.model.toastMessage(), QString());
    QVERIFY(time.elapsed() >= 2790);
}

void LocalM3UStoreTest::adds()
{
    Library library(m_file);
    LocalM3UStore &store = library.store;
    store.replaceEntries(savedLinks(QStringLiteral("x"), 3));
    Fields fields = savedLinkFields(QStringLiteral("x1"));
    fields.name = QStringLiteral(" new ");
    fields.countryCode = QStringLiteral("USA");
    store.add(fields);
    QCOMPARE(library.names(),
        QStringList({ QStringLiteral(" new "), QStringLiteral("x0"), QStringLiteral("x2") }));
    const PlaylistEntry added = store.entries().constFirst();
    QVERIFY(added.id() != fields.id);
    fields.id = added.id();
    QCOMPARE(added, PlaylistEntry(fields));
    QCOMPARE(library.model.toastMessage(), QString());
}

void LocalM3UStoreTest::updatesInPlace()
{
    Library library(m_file);
    LocalM3UStore &store = library.store;
    QList<PlaylistEntry> entries = savedLinks(QStringLiteral("x"), 4);
    Fields same = savedLinkFields(QStringLiteral("same"));
    same.id = entries[1].id();
    entries[2] = PlaylistEntry(same);
    store.replaceEntries(entries);

    Fields fields = savedLinkFields(QStringLiteral("new"));
    fields.id = entries[1].id();
    fields.url = address(QString(entries[0].address()));
    store.update(fields);
    entries[1] = PlaylistEntry(fields);
    QCOMPARE(store.entries(), entries);
    QVERIFY(!store.contains(savedLink(QStringLiteral("x1"))));
    QCOMPARE(library.model.toastMessage(), QString());
}

void LocalM3UStoreTest::updatesOnlyWhatIsThere()
{
    Library library(m_file);
    library.store.replaceEntries(savedLinks(QStringLiteral("x"), 2));
    const QList<PlaylistEntry> before = library.store.entries();
    QSignalSpy changes(&library.store, &LocalM3UStore::entriesChanged);
    library.store.update(savedLinkFields(QStringLiteral("new")));
    QCOMPARE(library.store.entries(), before);
    QCOMPARE(changes.size(), 0);
}

void LocalM3UStoreTest::removesById()
{
    Library library(m_file);
    LocalM3UStore &store = library.store;
    QList<PlaylistEntry> entries = savedLinks(QStringLiteral("x"), 4);
    Fields same = savedLinkFields(QStringLiteral("same"));
    same.id = entries[1].id();
    entries[3] = PlaylistEntry(same);
    store.replaceEntries(entries);
    // The list has changed since somebody took this one out of it.
    Fields held = same;
    held.name = QStringLiteral("held");
    held.url = address(QStringLiteral("http://h/elsewhere"));
    store.remove(PlaylistEntry(held));
    QCOMPARE(library.names(), QStringList({ QStringLiteral("x0"), QStringLiteral("x2") }));
    QCOMPARE(library.model.toastMessage(), QStringLiteral("Removed: held"));
    store.remove(savedLink(QStringLiteral("x0")));
    QCOMPARE(store.entries().size(), 2);
}

void LocalM3UStoreTest::clears()
{
    Library library(m_file);
    library.store.replaceEntries(savedLinks(QStringLiteral("x"), 4));
    library.store.clear();
    QVERIFY(library.store.entries().isEmpty());
    QCOMPARE(library.defaults.text(LocalM3UStore::defaultsKey()), "[]");
    QCOMPARE(library.model.toastMessage(), QString());
}

void LocalM3UStoreTest::replacesTheWholeList()
{
    Library library(m_file);
    library.store.replaceEntries(savedLinks(QStringLiteral("old"), 10));
    const auto imported = savedLinks(QStringLiteral("new"), 3);
    library.store.replaceEntries(imported);
    QCOMPARE(library.store.entries(), imported);
    QCOMPARE(Library(m_file).store.entries(), imported);
}

void LocalM3UStoreTest::aNewListOfNothingChangesNothing()
{
    Library library(m_file);
    const auto links = savedLinks(QStringLiteral("old"), 10);
    library.store.replaceEntries(links);
    library.store.replaceEntries({});
    QCOMPARE(library.store.entries(), links);
}

void LocalM3UStoreTest::importsAFileInPlaceOfTheList()
{
    Library library(m_file);
    library.store.replaceEntries(savedLinks(QStringLiteral("old"), 10));
    const QString list = m_folder->filePath(QStringLiteral("list.m3u"));
    QVERIFY(writeFile(list, "#EXTM3U\n#EXTINF:-1,A\nhttp://h/a\n#EXTINF:-1,B\nb\nhttp://h/c\n"));
    library.panels.answer = QUrl::fromLocalFile(list);
    library.store.importLocalPlaylist(QStringLiteral(" Mine "));
    QCOMPARE(library.names(),
        QStringList({ QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("c") }));
    QCOMPARE(library.store.entries(), library.model.playlist());
    QCOMPARE(storedEntries(m_file), library.store.entries());
    QVERIFY(library.store.contains(address(QStringLiteral("http://h/c"))));
    QCOMPARE(library.model.title(), QStringLiteral("Mine"));
    QCOMPARE(library.model.toastMessage(), QString());
}

void LocalM3UStoreTest::importsNothingWhenTheUserCancels()
{
    Library library(m_file);
    const auto links = savedLinks(QStringLiteral("old"), 10);
    library.store.replaceEntries(links);
    library.store.importLocalPlaylist(QString());
    QCOMPARE(library.panels.shown.size(), 1);
    QCOMPARE(library.store.entries(), links);
    QCOMPARE(library.model.errorMessage(), QString());
}

void LocalM3UStoreTest::importsNothingThatCannotBeRead_data()
{
    QTest::addColumn<std::optional<QByteArray>>("content");
    QTest::newRow("empty") << std::optional(QByteArray());
    QTest::newRow("no address") << std::optional(QByteArray("#EXTM3U\n#EXTINF:-1,A\n"));
    QTest::newRow("missing") << std::optional<QByteArray>();
}

void LocalM3UStoreTest::importsNothingThatCannotBeRead()
{
    QFETCH(std::optional<QByteArray>, content);
    Library library(m_file);
    const auto links = savedLinks(QStringLiteral("old"), 10);
    library.store.replaceEntries(links);
    const QString list = m_folder->filePath(QStringLiteral("list.m3u"));
    QVERIFY(!content || writeFile(list, *content));
    library.panels.answer = QUrl::fromLocalFile(list);
    library.store.importLocalPlaylist(QString());
    QVERIFY(!library.model.errorMessage().isEmpty());
    QCOMPARE(library.store.entries(), links);
    QCOMPARE(storedEntries(m_file), links);
}

void LocalM3UStoreTest::containsAddressesLetterByLetter()
{
    Library library(m_file);
    library.store.add(savedLinkFields(QStringLiteral("a")));
    QVERIFY(library.store.contains(address(QStringLiteral("http://h/a.m3u8"))));
    for (const char *other : { "http://h/a.m3u8/", "HTTP://h/a.m3u8", "http://H/a.m3u8",
             "http://h/a.m3u8?", "http://h/%61.m3u8", "http://h:80/a.m3u8", "https://h/a.m3u8" })
        QVERIFY2(!library.store.contains(address(QString::fromUtf8(other))), other);
}

void LocalM3UStoreTest::containsWhatTheListHolds()
{
    QRandomGenerator random(3);
    Library library(m_file);
    LocalM3UStore &store = library.store;
    const auto known = savedLinks(QStringLiteral("x"), 12);
    for (int i = 0; i < 300; ++i) {
        const PlaylistEntry &entry = known[random.bounded(known.size())];
        switch (random.bounded(4)) {
        case 0:
            store.saveToLocalM3U(entry);
            break;
        case 1:
            if (!store.entries().isEmpty())
                store.remove(store.entries()[random.bounded(store.entries().size())]);
            break;
        case 2:
            if (!store.entries().isEmpty()) {
                Fields fields = savedLinkFields(entry.name());
                fields.id = store.entries()[random.bounded(store.entries().size())].id();
                store.update(fields);
            }
            break;
        default:
            store.replaceEntries({ entry, known[random.bounded(known.size())], entry });
        }
        for (const PlaylistEntry &other : known) {
            const bool isListed = std::any_of(store.entries().begin(), store.entries().end(),
                [&](const PlaylistEntry &listed) { return listed.address() == other.address(); });
            QCOMPARE(store.contains(other), isListed);
        }
    }
}

void LocalM3UStoreTest::mayBeChangedByItsObservers()
{
    Library library(m_file);
    connect(&library.store, &LocalM3UStore::entriesChanged, &library.store, [&] {
        if (library.store.entries().size() < 3)
            library.store.add(savedLinkFields(QString::number(library.store.entries().size())));
    });
    library.store.add(savedLinkFields(QStringLiteral("0")));
    QCOMPARE(library.names(),
        QStringList({ QStringLiteral("2"), QStringLiteral("1"), QStringLiteral("0") }));
    QCOMPARE(storedEntries(m_file), library.store.entries());
}

void LocalM3UStoreTest::keepsWhatCannotBeStored_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("a file in the way") << QStringLiteral("/etc/passwd/x.conf");
    QTest::newRow("no such folder") << QStringLiteral("/proc/no-such-folder/x.conf");
    QTest::newRow("a folder") << QDir::tempPath();
}

void LocalM3UStoreTest::keepsWhatCannotBeStored()
{
    QFETCH(QString, file);
    Library library(file);
    LocalM3UStore &store = library.store;
    QSignalSpy errors(&store, &LocalM3UStore::errorMessageChanged);
    const QString prefix = QStringLiteral("Could not save Local M3U: ");

    store.saveToLocalM3U(savedLink(QStringLiteral("a")));
    QCOMPARE(library.names(), QStringList(QStringLiteral("a")));
    QVERIFY(store.errorMessage().startsWith(prefix));
    QVERIFY(store.errorMessage().size() > prefix.size());
    QCOMPARE(library.model.toastMessage(), store.errorMessage());
    QCOMPARE(errors.size(), 1);

    // It is told every time.
    library.model.showToast(QStringLiteral("x"), 1'000'000'000);
    store.saveToLocalM3U(savedLink(QStringLiteral("b")));
    QCOMPARE(library.names(), QStringList({ QStringLiteral("b"), QStringLiteral("a") }));
    QCOMPARE(library.model.toastMessage(), store.errorMessage());
    store.remove(store.entries().constLast());
    QCOMPARE(library.names(), QStringList(QStringLiteral("b")));
    QCOMPARE(library.model.toastMessage(), store.errorMessage());
    QVERIFY(store.contains(savedLink(QStringLiteral("b"))));
}

void LocalM3UStoreTest::keepsWhatAReadOnlyFolderDoesNotTake_data()
{
    QTest::addColumn<bool>("hasStoredLinks");
    QTest::newRow("first link") << false;
    QTest::newRow("further link") << true;
}

void LocalM3UStoreTest::keepsWhatAReadOnlyFolderDoesNotTake()
{
    QFETCH(bool, hasStoredLinks);
    if (hasStoredLinks) {
        Library(m_file).store.add(savedLinkFields(QStringLiteral("old")));
        QVERIFY(QFile::setPermissions(
            m_file, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther));
    }
    const QByteArray before = contentOf(m_file);
    Library library(m_file);
    {
        const ReadOnlyFolder folder(m_folder->path());
        library.store.add(savedLinkFields(QStringLiteral("new")));
        QCOMPARE(library.store.errorMessage(),
            QStringLiteral("Could not save Local M3U: ") + qt_error_string(EACCES));
        QCOMPARE(library.model.toastMessage(), library.store.errorMessage());
        QCOMPARE(library.names().constFirst(), QStringLiteral("new"));
        QCOMPARE(contentOf(m_file), before);
    }
    // Once it may be written again, the next change takes along what was kept.
    library.store.add(savedLinkFields(QStringLiteral("newer")));
    QCOMPARE(library.store.errorMessage(), QString());
    QCOMPARE(library.store.entries().size(), hasStoredLinks ? 3 : 2);
    QCOMPARE(storedEntries(m_file), library.store.entries());
}

void LocalM3UStoreTest::tellsOfAFullDisk_data()
{
    QTest::addColumn<bool>("isRealDisk");
    QTest::newRow("limit") << false;
    QTest::newRow("disk") << true;
}

void LocalM3UStoreTest::tellsOfAFullDisk()
{
    QFETCH(bool, isRealDisk);
    if (isRealDisk && !m_disk.isMounted())
        QSKIP("this machine lets nobody mount a file system");
    if (isRealDisk)
        m_file = m_disk.folder() + QStringLiteral("/test.conf");
    Library library(m_file);
    LocalM3UStore &store = library.store;
    const auto few = savedLinks(QStringLiteral("few"), 500);
    const auto many = savedLinks(QStringLiteral("many"), 10'000);
    store.replaceEntries(few);
    QCOMPARE(store.errorMessage(), QString());
    {
        std::optional<FileSizeLimit> limit;
        if (!isRealDisk)
            limit.emplace(200'000);
        store.replaceEntries(many);
        const QString reason = qt_error_string(isRealDisk ? ENOSPC : EFBIG);
        QCOMPARE(store.errorMessage(), QStringLiteral("Could not save Local M3U: ") + reason);
        QCOMPARE(store.entries(), many);
        QCOMPARE(storedEntries(m_file), few);
        // What is not stored is not lost when another change fails, too.
        store.saveToLocalM3U(savedLink(QStringLiteral("more")));
        QCOMPARE(store.entries().size(), many.size() + 1);
        QCOMPARE(library.model.toastMessage(), store.errorMessage());
        QCOMPARE(storedEntries(m_file), few);
    }
    // With less to be stored there is room.
    QSignalSpy errors(&store, &LocalM3UStore::errorMessageChanged);
    store.replaceEntries(savedLinks(QStringLiteral("less"), 10));
    QCOMPARE(store.errorMessage(), QString());
    QCOMPARE(errors.size(), 1);
    QCOMPARE(storedEntries(m_file), store.entries());
}

void LocalM3UStoreTest::takesOverWhatAnotherWindowSaved()
{
    Library first(m_file);
    first.store.add(savedLinkFields(QStringLiteral("a")));
    Library second(m_file);
    second.store.add(savedLinkFields(QStringLiteral("b")));
    QCOMPARE(first.names(), QStringList(QStringLiteral("a")));
    first.store.add(savedLinkFields(QStringLiteral("c")));
    QCOMPARE(first.names(),
        QStringList({ QStringLiteral("c"), QStringLiteral("b"), QStringLiteral("a") }));
    QVERIFY(first.store.contains(savedLink(QStringLiteral("b"))));
    // What was removed there does not come back, nor can it be changed.
    const PlaylistEntry removed = second.store.entries().constLast();
    second.store.remove(removed);
    QSignalSpy changes(&first.store, &LocalM3UStore::entriesChanged);
    Fields fields = savedLinkFields(QStringLiteral("new a"));
    fields.id = removed.id();
    first.store.update(fields);
    QCOMPARE(first.names(), QStringList({ QStringLiteral("c"), QStringLiteral("b") }));
    QCOMPARE(changes.size(), 1);
    QCOMPARE(storedEntries(m_file), first.store.entries());
}

void LocalM3UStoreTest::keepsItsOwnWhenTheStoredListIsLost()
{
    Library library(m_file);
    library.store.add(savedLinkFields(QStringLiteral("a")));
    QVERIFY(writeFile(m_file, settingsWith("no list")));
    library.store.add(savedLinkFields(QStringLiteral("b")));
    QVERIFY(QFile::remove(m_file));
    library.store.add(savedLinkFields(QStringLiteral("c")));
    QCOMPARE(library.names(),
        QStringList({ QStringLiteral("c"), QStringLiteral("b"), QStringLiteral("a") }));
    QCOMPARE(storedEntries(m_file), library.store.entries());
}

void LocalM3UStoreTest::processesDoNotLoseEachOthersLinks()
{
    constexpr int count = 50;
    QProcess processes[3];
    for (QProcess &process : processes) {
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        const QString name = QStringLiteral("p%1-").arg(&process - processes);
        process.start(qEnvironmentVariable("ZEPH_EDIT_SAVED_LINKS"),
            { m_file, QStringLiteral("add"), name, QString::number(count) });
    }
    for (QProcess &process : processes) {
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitCode(), EXIT_SUCCESS);
    }
    const Library library(m_file);
    QCOMPARE(library.store.entries().size(), 3 * count);
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < count; ++j)
            QVERIFY(library.names().contains(QStringLiteral("p%1-%2").arg(i).arg(j)));
    }
}

void LocalM3UStoreTest::aKilledProcessLeavesAWholeList()
{
    constexpr int kills = 200;
    QRandomGenerator random(5);
    int shortLists = 0;
    for (int i = 0; i < kills; ++i) {
        QProcess process;
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(
            qEnvironmentVariable("ZEPH_EDIT_SAVED_LINKS"), { m_file, QStringLiteral("replace") });
        QVERIFY(process.waitForReadyRead());
        QThread::usleep(random.bounded(20'000u));
        process.kill();
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitStatus(), QProcess::CrashExit);

        const auto entries = storedEntries(m_file);
        QVERIFY(entries);
        const bool isShort = entries->size() == 20;
        QCOMPARE(entries->size(), isShort ? 20 : 2000);
        shortLists += isShort;
        for (int j = 0; j < entries->size(); ++j)
            QCOMPARE(entries->at(j).name(),
                (isShort ? QStringLiteral("short") : QStringLiteral("long")) + QString::number(j));
    }
    // Both were met with.
    QVERIFY(shortLists > 0);
    QVERIFY(shortLists < kills);
    // And the next one gets to work as if nothing had happened.
    Library library(m_file);
    library.store.add(savedLinkFields(QStringLiteral("new")));
    QCOMPARE(library.store.errorMessage(), QString());
    QCOMPARE(library.names().constFirst(), QStringLiteral("new"));
}

int main(int argc, char *argv[])
{
    const SmallDisk disk(256 * 1024);
    QCoreApplication application(argc, argv);
    LocalM3UStoreTest test(disk);
    return QTest::qExec(&test, argc, argv);
}

#include "tst_local_m3u_store.moc"
