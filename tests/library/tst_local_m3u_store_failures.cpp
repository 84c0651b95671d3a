// Saved links that cannot be stored.
#include "StoreTest.h"
#include "support/FullDisk.h"
#include "support/ReadOnlyFolder.h"

#include <QDir>
#include <QSignalSpy>

#include <cerrno>

using namespace zeph;

class LocalM3UStoreFailuresTest : public StoreTest {
    Q_OBJECT

public:
    explicit LocalM3UStoreFailuresTest(const SmallDisk &disk) : m_disk(disk) { }

private Q_SLOTS:
    void keepsWhatCannotBeStored_data();
    void keepsWhatCannotBeStored();
    void keepsWhatAReadOnlyFolderDoesNotTake_data();
    void keepsWhatAReadOnlyFolderDoesNotTake();
    void tellsOfAFullDisk_data();
    void tellsOfAFullDisk();

private:
    const SmallDisk &m_disk;
};

void LocalM3UStoreFailuresTest::keepsWhatCannotBeStored_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("a file in the way") << QStringLiteral("/etc/passwd/x.conf");
    QTest::newRow("no such folder") << QStringLiteral("/proc/no-such-folder/x.conf");
    QTest::newRow("a folder") << QDir::tempPath();
}

void LocalM3UStoreFailuresTest::keepsWhatCannotBeStored()
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

void LocalM3UStoreFailuresTest::keepsWhatAReadOnlyFolderDoesNotTake_data()
{
    QTest::addColumn<bool>("hasStoredLinks");
    QTest::newRow("first link") << false;
    QTest::newRow("further link") << true;
}

void LocalM3UStoreFailuresTest::keepsWhatAReadOnlyFolderDoesNotTake()
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

void LocalM3UStoreFailuresTest::tellsOfAFullDisk_data()
{
    FullDisk::addRows();
}

void LocalM3UStoreFailuresTest::tellsOfAFullDisk()
{
    const FullDisk disk(m_disk);
    if (const char *reason = disk.reasonToSkip())
        QSKIP(reason);
    m_file = disk.place(m_file);
    Library library(m_file);
    LocalM3UStore &store = library.store;
    const auto few = savedLinks(QStringLiteral("few"), 500);
    const auto many = savedLinks(QStringLiteral("many"), 10'000);
    store.replaceEntries(few);
    QCOMPARE(store.errorMessage(), QString());
    {
        const auto limit = disk.runFull();
        store.replaceEntries(many);
        const QString reason = disk.error();
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

ZEPH_SMALL_DISK_TEST_MAIN(LocalM3UStoreFailuresTest)
#include "tst_local_m3u_store_failures.moc"
