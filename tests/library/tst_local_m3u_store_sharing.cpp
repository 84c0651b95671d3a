// Saved links that several windows and processes change, and one that is killed meanwhile.
#include "StoreTest.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QThread>

using namespace zeph;
using Fields = PlaylistEntry::Fields;

class LocalM3UStoreSharingTest : public StoreTest {
    Q_OBJECT

private Q_SLOTS:
    void takesOverWhatAnotherWindowSaved();
    void keepsItsOwnWhenTheStoredListIsLost();
    void processesDoNotLoseEachOthersLinks();
    void aKilledProcessLeavesAWholeList();
};

void LocalM3UStoreSharingTest::takesOverWhatAnotherWindowSaved()
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

void LocalM3UStoreSharingTest::keepsItsOwnWhenTheStoredListIsLost()
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

void LocalM3UStoreSharingTest::processesDoNotLoseEachOthersLinks()
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

void LocalM3UStoreSharingTest::aKilledProcessLeavesAWholeList()
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

QTEST_GUILESS_MAIN(LocalM3UStoreSharingTest)
#include "tst_local_m3u_store_sharing.moc"
