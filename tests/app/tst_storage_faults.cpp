// The built program when what it keeps cannot be written, or when it ends while it writes.
#include "KeptLinks.h"
#include "SidebarPlayer.h"
#include "support/FullDisk.h"
#include "support/ReadOnlyFolder.h"

#include <cerrno>

using zeph::TestServer;

namespace {

const QString listPath = QStringLiteral("/list.m3u");
const QString save = QStringLiteral("Save to Local M3U");
const QString exportButton = QStringLiteral("Export");
const QString exportTitle = QStringLiteral("Export Local M3U Playlist");
constexpr int channelCount = 12;

QString channel(int number)
{
    return QStringLiteral("Channel %1").arg(number);
}

struct Station : TestServer {
    Station() : TestServer(QString()) { serve(listPath, listOf(channelCount, "Channel")); }
};

bool showsChannels(const SidebarPlayer &player, const Station &station)
{
    return player.showSidebar() && player.open(station.url(listPath))
        && player.awaitChannel(channel(0));
}

/// Waits for the message that links cannot be saved, for this reason.
bool tellsThatItCannotSave(const SidebarPlayer &player, const QString &reason)
{
    return bool(player.await(Role::Alert, QStringLiteral("Could not save Local M3U: ") + reason));
}

} // namespace

class StorageFaultsTest : public QObject {
    Q_OBJECT

public:
    explicit StorageFaultsTest(const SmallDisk &disk) : m_disk(disk) { }

private Q_SLOTS:
    void initTestCase() { obeyPermissionsInPrograms(); }
    void init() { m_settings = std::make_unique<OwnSettings>(); }

    void aReadOnlyFolderKeepsWhatItHolds()
    {
        const Station station;
        {
            const SidebarPlayer player(m_bus);
            QVERIFY(showsChannels(player, station));
            QVERIFY(player.pressButtonOf(channel(1), save));
            QVERIFY(player.await(Role::Alert, QStringLiteral("Saved to Local M3U: ") + channel(1)));
        }
        const QString file = settingsFile(m_settings->path());
        const QByteArray before = contentOf(file);
        const QString folder = QFileInfo(file).path();
        constexpr auto mayRead = QFile::ReadOwner | QFile::ExeOwner;
        QVERIFY(QFile::setPermissions(folder, mayRead));
        const auto reopen =
            qScopeGuard([&] { QFile::setPermissions(folder, mayRead | QFile::WriteOwner); });

        const SidebarPlayer player(m_bus, { clip("long.mp4") });
        QVERIFY(player.await(Role::Button, pauseButton));
        QVERIFY(showsChannels(player, station));
        QVERIFY(player.pressButtonOf(channel(2), save));
        QVERIFY(tellsThatItCannotSave(player, qt_error_string(EACCES)));
        QCOMPARE(contentOf(file), before);
        QVERIFY(player.showSection(localSection));
        // It is there for the time being, and the reason stays in sight.
        QVERIFY(player.awaitHeading(localCount(2, 2)));
        QVERIFY(tellsThatItCannotSave(player, qt_error_string(EACCES)));
        const double position = player.positionValue();
        QTRY_VERIFY(player.positionValue() > position);
    }

    void aFullDiskKeepsWhatItHolds()
    {
        if (!m_disk.isMounted())
            QSKIP("this machine lets nobody mount a file system");
        qputenv("XDG_CONFIG_HOME", m_disk.folder().toUtf8());
        const Station station;
        const QString exported = m_disk.folder() + QStringLiteral("/exported.m3u");
        const QString filler = m_disk.folder() + QStringLiteral("/filler");
        const SidebarPlayer player(m_bus);
        QVERIFY(showsChannels(player, station));
        QVERIFY(player.pressButtonOf(channel(1), save));
        QVERIFY(player.await(Role::Alert, QStringLiteral("Saved to Local M3U: ") + channel(1)));
        QVERIFY(player.showSection(localSection));
        QVERIFY(player.pressButton(exportButton));
        QVERIFY(player.answerPanel(exportTitle, exported));
        QVERIFY(player.await(Role::Alert, QStringLiteral("Exported: exported.m3u")));
        const QByteArray exportedBefore = contentOf(exported);
        const QString file = settingsFile(m_disk.folder());
        const QByteArray before = contentOf(file);
        QCOMPARE(storedNames(file), QStringList(channel(1)));

        QVERIFY(!writeFile(filler, QByteArray(1 << 20, 'x')));
        QVERIFY(player.showSection(networkSection));
        QVERIFY(player.pressButtonOf(channel(2), save));
        QVERIFY(tellsThatItCannotSave(player, qt_error_string(ENOSPC)));
        QCOMPARE(contentOf(file), before);
        QVERIFY(player.showSection(localSection));
        QVERIFY(player.awaitHeading(localCount(2, 2)));
        QVERIFY(player.pressButton(exportButton));
        const QString another = m_disk.folder() + QStringLiteral("/another.m3u");
        QVERIFY(player.answerPanel(exportTitle, another));
        QVERIFY(player.await(Role::Label, QStringLiteral("Could Not Export M3U Playlist")));
        QVERIFY(player.await(Role::Label, qt_error_string(ENOSPC)));
        QVERIFY(player.pressButton(QStringLiteral("OK")));
        QVERIFY(!QFile::exists(another));
        QCOMPARE(contentOf(exported), exportedBefore);

        // With room again the next change takes along what was kept.
        QVERIFY(QFile::remove(filler));
        QVERIFY(player.showSection(networkSection));
        QVERIFY(player.pressButtonOf(channel(3), save));
        QVERIFY(player.await(Role::Alert, QStringLiteral("Saved to Local M3U: ") + channel(3)));
        QCOMPARE(storedNames(file), QStringList({ channel(3), channel(2), channel(1) }));
    }

private:
    const SmallDisk &m_disk;
    AccessibilityBus m_bus;
    std::unique_ptr<OwnSettings> m_settings;
};

int main(int argc, char **argv)
{
    const SmallDisk disk(256 << 10);
    QGuiApplication application(argc, argv);
    StorageFaultsTest test(disk);
    return QTest::qExec(&test, argc, argv);
}

#include "tst_storage_faults.moc"
