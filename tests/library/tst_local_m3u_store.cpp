// What changes do to the list of saved links.
#include "StoreTest.h"

#include <QRandomGenerator>
#include <QSignalSpy>

using namespace zeph;

namespace {

using Fields = PlaylistEntry::Fields;

PlaylistEntry entryCalled(const QString &name, const QString &url)
{
    return savedLinkWith([&](Fields &fields) {
        fields.name = name;
        fields.url = address(url);
    });
}

// Four, of which the one at `place` has the id of the second.
QList<PlaylistEntry> linksOfWhichTwoShareAnId(int place)
{
    QList<PlaylistEntry> links = savedLinks(QStringLiteral("x"), 4);
    Fields same = savedLinkFields(QStringLiteral("same"));
    same.id = links[1].id();
    links[place] = PlaylistEntry(same);
    return links;
}

} // namespace

class LocalM3UStoreTest : public StoreTest {
    Q_OBJECT

private Q_SLOTS:
    void startsWithNothing();
    void storesEveryChange();
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
};

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

void LocalM3UStoreTest::savesAtTheFront()
{
    Library library(m_file);
    library.store.replaceEntries(savedLinks(QStringLiteral("old"), 2));
    const PlaylistEntry entry = savedLinkWith([](Fields &fields) {
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
    QList<PlaylistEntry> entries = linksOfWhichTwoShareAnId(2);
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
    const QList<PlaylistEntry> entries = linksOfWhichTwoShareAnId(3);
    store.replaceEntries(entries);
    // The list has changed since somebody took this one out of it.
    Fields held = savedLinkFields(QStringLiteral("held"));
    held.id = entries[1].id();
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

QTEST_GUILESS_MAIN(LocalM3UStoreTest)
#include "tst_local_m3u_store.moc"
