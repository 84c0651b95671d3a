// The built program's saved links, driven from outside.
#include "SidebarPlayer.h"
#include "support/Files.h"

using zeph::TestServer;

namespace {

const QString importTitle = QStringLiteral("Import M3U Playlist");
const QString exportTitle = QStringLiteral("Export Local M3U Playlist");
const QString chooseFile = QStringLiteral("Choose M3U File\u2026");
const QString changeFile = QStringLiteral("Change M3U File\u2026");
const QString exportButton = QStringLiteral("Export");
const QString clearButton = QStringLiteral("Clear");
const QString editButton = QStringLiteral("Edit");
const QString deleteButton = QStringLiteral("Delete");
const QString cancelButton = QStringLiteral("Cancel");
const QString nameField = QStringLiteral("Channel or video name");
const QString one = QStringLiteral("One");
const QString two = QStringLiteral("Two");
const QString emptyText =
    QStringLiteral("No local M3U8 links yet. Choose an M3U file or click + to add a link.");

const QByteArray links = "#EXTM3U\n"
                         "#EXTINF:-1 tvg-country=\"DE\" group-title=\"News\",One\n"
                         "http://127.0.0.1:9/1.m3u8\n"
                         "#EXTINF:-1,Two\n"
                         "http://127.0.0.1:9/2.m3u8\n";

/// Shows the saved links.
bool showLinks(const SidebarPlayer &player)
{
    return player.showSidebar() && player.showSection(localSection);
}

} // namespace

class SavedLinksTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_settings = std::make_unique<OwnSettings>(); }

    void aFileIsImportedAndExported()
    {
        const QString exported = m_folder.filePath(QStringLiteral("exported.m3u"));
        {
            const SidebarPlayer player(m_bus);
            QVERIFY(showLinks(player));
            QVERIFY(player.await(Role::Label, emptyText));
            QVERIFY(player.pressButton(chooseFile));
            QVERIFY(player.answerPanel(importTitle, file("links.m3u", links)));
            QVERIFY(player.awaitHeading(localCount(2, 2)));
            QCOMPARE(
                player.awaitChannel(one).description(), QStringLiteral("Germany  \u00b7  News"));
            QVERIFY(player.shows(Role::Button, changeFile));
            QVERIFY(!player.shows(Role::Label, emptyText));

            QVERIFY(player.pressButton(exportButton));
            QVERIFY(player.answerPanel(exportTitle, exported));
            QVERIFY(player.await(Role::Alert, QStringLiteral("Exported: exported.m3u")));
            QVERIFY(contentOf(exported).contains("http://127.0.0.1:9/2.m3u8"));
        }
        // What was exported can be imported again.
        m_settings = std::make_unique<OwnSettings>();
        const SidebarPlayer player(m_bus);
        QVERIFY(import(player, exported));
        QCOMPARE(player.awaitChannel(one).description(), QStringLiteral("Germany  \u00b7  News"));
        QVERIFY(player.awaitChannel(two));
    }

    void aFileThatIsNoListIsNotImported()
    {
        const SidebarPlayer player(m_bus);
        QVERIFY(import(player, file("links.m3u", links)));
        QVERIFY(player.pressButton(changeFile));
        QVERIFY(player.answerPanel(importTitle, file("empty.m3u", {})));
        QTRY_VERIFY(player.findAll(Role::Alert)
                        .value(0)
                        .name()
                        .startsWith(QStringLiteral("Could not import playlist: ")));
        QVERIFY(player.awaitHeading(localCount(2, 2)));
    }

    void aLinkIsPlayed()
    {
        const TestServer server(clip("hls-colours"));
        const SidebarPlayer player(m_bus);
        const QByteArray address = server.url(QStringLiteral("/index.m3u8")).toEncoded();
        QVERIFY(import(player, file("link.m3u", "#EXTM3U\n#EXTINF:-1,Colours\n" + address)));
        QVERIFY(player.awaitChannel(QStringLiteral("Colours")).press());
        QTRY_COMPARE(player.title(), QStringLiteral("Colours"));
        QVERIFY(player.awaitColours());
    }

    void aLinkIsAdded()
    {
        const SidebarPlayer player(m_bus);
        QVERIFY(showLinks(player));
        QVERIFY(player.pressButton(QStringLiteral("Add M3U8 Link")));
        QVERIFY(player.awaitHeading(QStringLiteral("Add M3U8 Link")));
        // As a screen reader, or a voice, writes: without keys.
        const QStringList texts { nameField, QStringLiteral("Mine"), QStringLiteral("M3U8 URL"),
            QStringLiteral("http://127.0.0.1:9/3.m3u8"),
            QStringLiteral("Country code (for example: TR, US)"), QStringLiteral(" at "),
            QStringLiteral("Category (optional)"), QStringLiteral("Music") };
        for (qsizetype i = 0; i < texts.size(); i += 2)
            QVERIFY(player.await(Role::TextField, texts[i]).setText(texts[i + 1]));
        QVERIFY(player.pressButton(QStringLiteral("Save")));
        QCOMPARE(player.awaitChannel(QStringLiteral("Mine")).description(),
            QStringLiteral("Austria  \u00b7  Music"));
    }

    void aLinkIsEdited()
    {
        {
            const SidebarPlayer player(m_bus);
            QVERIFY(import(player, file("links.m3u", links)));
            QVERIFY(player.pressButtonOf(two, editButton));
            QVERIFY(player.awaitHeading(QStringLiteral("Edit M3U8 Link")));
            QVERIFY(player.awaitFocus(nameField));
            QCOMPARE(player.focused().text(), two);
            type(QStringLiteral("Three")); // In place of the name, which is selected.
            QTRY_COMPARE(player.focused().text(), QStringLiteral("Three"));
            player.window().press(QStringLiteral("Return"));
            QVERIFY(player.awaitChannel(QStringLiteral("Three")));
            QTRY_VERIFY(!player.shows(Role::TextField, nameField));
            QTRY_VERIFY(!player.showsChannel(two));
        }
        const SidebarPlayer player(m_bus);
        QVERIFY(showLinks(player));
        QVERIFY(player.awaitChannel(QStringLiteral("Three")));
        QVERIFY(player.awaitChannel(one));
    }

    void aLinkIsDeleted()
    {
        {
            const SidebarPlayer player(m_bus);
            QVERIFY(import(player, file("links.m3u", links)));
            QVERIFY(player.pressButtonOf(one, deleteButton));
            QVERIFY(player.awaitHeading(QStringLiteral("Delete Channel?")));
            QVERIFY(player.awaitFocus(cancelButton));
            QVERIFY(player.pressButton(cancelButton));
            QTRY_VERIFY(!player.shows(Role::Button, cancelButton));
            QVERIFY(player.awaitChannel(one));

            QVERIFY(player.pressButtonOf(one, deleteButton));
            QVERIFY(player.awaitFocus(cancelButton));
            player.window().press(QStringLiteral("Tab"));
            QVERIFY(player.awaitFocus(deleteButton));
            player.window().press(QStringLiteral("Return"));
            QVERIFY(player.await(Role::Alert, QStringLiteral("Removed: One")));
            QVERIFY(player.awaitHeading(localCount(1, 1)));
        }
        const SidebarPlayer player(m_bus);
        QVERIFY(showLinks(player));
        QVERIFY(player.awaitChannel(two));
        QTRY_VERIFY(!player.showsChannel(one));
    }

    void allAreDeleted()
    {
        {
            const SidebarPlayer player(m_bus);
            QVERIFY(import(player, file("links.m3u", links)));
            QVERIFY(player.pressButton(clearButton));
            QVERIFY(player.awaitHeading(QStringLiteral("Delete All Local M3U8 Links?")));
            QVERIFY(player.awaitFocus(cancelButton));
            player.window().press(QStringLiteral("Escape"));
            QTRY_VERIFY(!player.shows(Role::Button, cancelButton));
            QVERIFY(player.awaitChannel(one));

            QVERIFY(player.pressButton(clearButton));
            QVERIFY(player.press(Role::Button, QStringLiteral("Delete Permanently")));
            QVERIFY(player.await(Role::Label, emptyText));
            QVERIFY(player.await(Role::Button, chooseFile));
        }
        const SidebarPlayer player(m_bus);
        QVERIFY(showLinks(player));
        QVERIFY(player.await(Role::Label, emptyText));
    }

private:
    /// A file of the test's own, with this in it.
    QString file(const char *name, const QByteArray &content) const
    {
        const QString path = m_folder.filePath(QLatin1StringView(name));
        return writeFile(path, content) ? path : QString();
    }
    /// Saves the links of a file, in place of none.
    static bool import(const SidebarPlayer &player, const QString &path)
    {
        return showLinks(player) && player.pressButton(chooseFile)
            && player.answerPanel(importTitle, path) && player.await(Role::Button, changeFile);
    }

    AccessibilityBus m_bus;
    std::unique_ptr<OwnSettings> m_settings;
    QTemporaryDir m_folder;
};

QTEST_MAIN(SavedLinksTest)
#include "tst_saved_links.moc"
