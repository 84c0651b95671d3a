// The panel of the saved links, used as its user would.
#include "ContentWindow.h"

#include <QFile>

using namespace zeph;

namespace {

const QString chooseFile = QStringLiteral("Choose M3U File\u2026");
const QString changeFile = QStringLiteral("Change M3U File\u2026");
const QString addLink = QStringLiteral("Add M3U8 Link");
const QString exportButton = QStringLiteral("Export");
const QString clearButton = QStringLiteral("Clear");
const QString edit = QStringLiteral("Edit");
const QString deleteButton = QStringLiteral("Delete");
const QString cancel = QStringLiteral("Cancel");
const QString searchField = QStringLiteral("Search local M3U8 links");
const QString emptyText =
    QStringLiteral("No local M3U8 links yet. Choose an M3U file or click + to add a link.");
const QString clearTitle = QStringLiteral("Delete All Local M3U8 Links?");

QString count(int shown, int total)
{
    return QStringLiteral("CHANNELS  \u00b7  %1 / %2").arg(shown).arg(total);
}

QString playHelp(int link)
{
    return QStringLiteral("Play Link %1").arg(link);
}

struct Panel : ContentWindow {
    Driver user = driver();

    explicit Panel(int links = 0)
    {
        if (links > 0)
            store().replaceEntries(savedLinks(QStringLiteral("Link "), links));
        view.setSelectedSidebarSection(PlayerSidebarSection::LocalM3U);
        view.controlBar()->toggleSidebar();
    }

    LocalM3UStore &store() { return *view.localM3UStore(); }
    bool isUp()
    {
        return ContentWindow::isUp()
            && QTest::qWaitFor(
                [this] {
                    return user.shows(addLink) && user.pointIn(addLink, 0).x() == 10 && showsRows();
                },
                patience);
    }
    bool showsRows() { return store().entries().isEmpty() || user.shows(playHelp(0)); }
    QStringList names()
    {
        QStringList names;
        for (const PlaylistEntry &entry : store().entries())
            names << entry.name();
        return names;
    }
    void type(const QString &text) const
    {
        for (const QChar letter : text)
            QTest::sendKeyEvent(QTest::Click, window, Qt::Key_unknown, letter, {});
    }
};

} // namespace

class LocalPanelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("qrc|qml|symbol|QML"))); }

    void emptyAndNot()
    {
        Panel test;
        QVERIFY(test.isUp());
        QVERIFY(test.user.shows(QStringLiteral("LOCAL M3U8 LINKS")));
        QVERIFY(test.user.shows(emptyText));
        QVERIFY(test.user.shows(chooseFile));
        QVERIFY(!test.user.shows(searchField));
        test.store().saveToLocalM3U(savedLinks(QStringLiteral("Link "), 1).constFirst());
        QVERIFY(test.user.shows(changeFile));
        QVERIFY(!test.user.shows(emptyText));
        QTRY_VERIFY(test.user.shows(playHelp(0)));
        QVERIFY(test.user.shows(count(1, 1)));
        test.store().clear();
        QTRY_VERIFY(test.user.shows(emptyText));
        QVERIFY(test.user.shows(chooseFile));
    }

    void toolTipsSayWhatScreenReadersSay()
    {
        Panel test(5);
        QVERIFY(test.isUp());
        for (const QString &name : { changeFile, addLink, exportButton, clearButton, searchField,
                 QStringLiteral("Countries"), QStringLiteral("Category"), playHelp(0), edit,
                 deleteButton, QStringLiteral("Network"), QStringLiteral("Local M3U") }) {
            QTRY_VERIFY2(test.user.shows(name), qPrintable(name));
            QVERIFY2(test.user.saysToolTip(name), qPrintable(name));
        }
    }

    void controls_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QAccessible::Role>("role");
        QTest::newRow("file") << changeFile << QAccessible::Button;
        QTest::newRow("add") << addLink << QAccessible::Button;
        QTest::newRow("export") << exportButton << QAccessible::Button;
        QTest::newRow("clear") << clearButton << QAccessible::Button;
        QTest::newRow("search") << searchField << QAccessible::EditableText;
        QTest::newRow("countries") << QStringLiteral("Countries") << QAccessible::ButtonMenu;
        QTest::newRow("category") << QStringLiteral("Category") << QAccessible::ButtonMenu;
        QTest::newRow("count") << count(5, 5) << QAccessible::Heading;
        QTest::newRow("row") << playHelp(0) << QAccessible::ListItem;
        QTest::newRow("edit") << edit << QAccessible::Button;
        QTest::newRow("delete") << deleteButton << QAccessible::Button;
    }
    void controls()
    {
        QFETCH(QString, name);
        QFETCH(QAccessible::Role, role);
        Panel test(5);
        QVERIFY(test.isUp());
        QVERIFY(test.user.shows(name));
        QCOMPARE(test.user.role(name), role);
    }

    void noneMatches()
    {
        Panel test(5);
        QVERIFY(test.isUp());
        test.user.click(searchField);
        test.type(QStringLiteral("nothing"));
        QTRY_VERIFY(test.user.shows(count(0, 5)));
        QTRY_VERIFY(!test.user.shows(playHelp(0)));
        QVERIFY(test.user.shows(changeFile));
        QVERIFY(!test.user.shows(emptyText));
    }

    void theSearchIsShared()
    {
        Panel test(5);
        QVERIFY(test.isUp());
        test.view.channels()->setChannelSearch(QStringLiteral("link 3"));
        QTRY_VERIFY(test.user.shows(count(1, 5)));
        test.user.click(QStringLiteral("Network"));
        QTRY_VERIFY(!test.user.shows(searchField));
        QCOMPARE(test.view.channels()->channelSearch(), QStringLiteral("link 3"));
        test.view.channels()->setChannelSearch(QStringLiteral("link 4"));
        test.user.click(QStringLiteral("Local M3U"));
        QTRY_VERIFY(test.user.shows(searchField));
        QCOMPARE(
            test.user.find(searchField)->property("text").toString(), QStringLiteral("link 4"));
        QVERIFY(test.user.shows(count(1, 5)));
        QTRY_VERIFY(test.user.shows(playHelp(4)));
    }

    void aRowIsPlayed()
    {
        Panel test(3);
        QVERIFY(test.isUp());
        test.user.click(playHelp(1));
        QCOMPARE(test.model.currentURL(), test.store().entries().at(1).url());
        QCOMPARE(test.model.title(), QStringLiteral("Link 1"));
        QVERIFY(test.model.isLiveStream());
        QTRY_VERIFY(test.user.find(playHelp(1))->property("isCurrent").toBool());
    }

    void aLinkIsAdded()
    {
        Panel test;
        QVERIFY(test.isUp());
        test.user.click(addLink);
        QTRY_COMPARE(test.user.focused(), QStringLiteral("Channel or video name"));
        test.type(QStringLiteral("News"));
        QTest::keyClick(test.window, Qt::Key_Tab);
        test.type(QStringLiteral("https://h/news.m3u8"));
        QTest::keyClick(test.window, Qt::Key_Return);
        QTRY_VERIFY(test.user.shows(QStringLiteral("Play News")));
        QCOMPARE(test.names(), QStringList { QStringLiteral("News") });
        QVERIFY(test.user.shows(count(1, 1)));
    }

    void aHeldKeyPressesOnce()
    {
        Panel test;
        QVERIFY(test.isUp());
        const auto repeat = [&test] {
            QTest::simulateEvent(test.window, true, Qt::Key_Return, {}, QStringLiteral("\r"), true);
        };
        test.user.find(addLink)->forceActiveFocus(Qt::TabFocusReason);
        repeat();
        QVERIFY(test.view.editForms().isEmpty());
        QTest::keyClick(test.window, Qt::Key_Return);
        QTRY_COMPARE(test.user.focused(), QStringLiteral("Channel or video name"));
        repeat();
        QCOMPARE(
            test.view.editForms().constFirst()->property("errorMessage").toString(), QString());
    }

    void aLinkIsEdited()
    {
        Panel test(2);
        QVERIFY(test.isUp());
        test.user.click(edit);
        QTRY_COMPARE(test.user.focused(), QStringLiteral("Channel or video name"));
        QVERIFY(test.user.shows(QStringLiteral("Edit M3U8 Link")));
        test.type(QStringLiteral("News")); // In place of the name, which is selected.
        QTest::keyClick(test.window, Qt::Key_Return);
        QTRY_VERIFY(test.user.shows(QStringLiteral("Play News")));
        QCOMPARE(test.names(), (QStringList { QStringLiteral("News"), QStringLiteral("Link 1") }));
        QVERIFY(test.model.currentURL().isEmpty()); // The row itself was not clicked.
    }

    void aLinkIsDeleted()
    {
        Panel test(2);
        QVERIFY(test.isUp());
        test.user.click(deleteButton);
        QTRY_COMPARE(test.user.focused(), cancel);
        QVERIFY(test.user.shows(QStringLiteral("Are you sure you want to delete \"Link 0\" from "
                                               "Local M3U? This action cannot be undone.")));
        test.user.click(cancel);
        QTRY_VERIFY(!test.user.shows(cancel));
        QCOMPARE(test.store().entries().size(), 2);

        test.user.click(deleteButton);
        QTRY_COMPARE(test.user.focused(), cancel);
        QTest::keyClick(test.window, Qt::Key_Tab);
        QTest::keyClick(test.window, Qt::Key_Return);
        QTRY_VERIFY(!test.user.shows(playHelp(0)));
        QCOMPARE(test.names(), QStringList { QStringLiteral("Link 1") });
        QVERIFY(test.user.shows(count(1, 1)));
        QCOMPARE(test.model.toastMessage(), QStringLiteral("Removed: Link 0"));
    }

    void allAreDeleted()
    {
        Panel test(5);
        QVERIFY(test.isUp());
        test.user.click(clearButton);
        QTRY_COMPARE(test.user.focused(), cancel);
        QVERIFY(test.user.shows(clearTitle));
        test.user.click(QStringLiteral("Delete Permanently"));
        QTRY_VERIFY(test.user.shows(emptyText));
        QVERIFY(test.store().entries().isEmpty());
    }

    void aFileIsImported()
    {
        Panel test(5);
        QVERIFY(test.isUp());
        QFile file(test.folder.filePath(QStringLiteral("list.m3u")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("#EXTM3U\n#EXTINF:-1,One\nhttp://h/1\n#EXTINF:-1,Two\nhttp://h/2\n");
        file.close();
        test.panels.answer = QUrl::fromLocalFile(file.fileName());
        test.view.channels()->setChannelSearch(QStringLiteral("link"));
        test.view.channels()->setSelectedCategory(QStringLiteral("News"));
        test.view.channels()->setSelectedCountryCode(QStringLiteral("DE"));
        test.view.setAddress(QStringLiteral("http://127.0.0.1:1/"));
        test.view.setMovieName(QStringLiteral("Mine"));
        test.user.click(changeFile);
        QTRY_VERIFY(test.user.shows(QStringLiteral("Play One")));
        QCOMPARE(test.names(), (QStringList { QStringLiteral("One"), QStringLiteral("Two") }));
        QVERIFY(test.user.shows(count(2, 2)));
        QCOMPARE(test.view.channels()->channelSearch(), QString());
        QCOMPARE(test.view.channels()->selectedCategory(), QString());
        QCOMPARE(test.view.channels()->selectedCountryCode(), QString());
        QCOMPARE(test.model.title(), QStringLiteral("Mine"));
        // The address does not open by itself any more.
        bool passed = false;
        Delay delay;
        delay.start(ContentView::automaticOpenDelay * 2, [&] { passed = true; });
        QTRY_VERIFY(passed);
        QVERIFY(test.model.currentURL().isEmpty());
    }

    void anImportThatFailsTellsWhy()
    {
        Panel test(5);
        QVERIFY(test.isUp());
        test.panels.answer = QUrl::fromLocalFile(test.folder.filePath(QStringLiteral("missing")));
        test.user.click(changeFile);
        QVERIFY(
            test.model.errorMessage().startsWith(QStringLiteral("Could not import playlist: ")));
        QTRY_VERIFY(test.user.shows(test.model.errorMessage()));
        QCOMPARE(test.user.role(test.model.errorMessage()), QAccessible::AlertMessage);
        QCOMPARE(test.store().entries().size(), 5);
    }

    void theListIsExported()
    {
        Panel test(2);
        QVERIFY(test.isUp());
        const QString path = test.folder.filePath(QStringLiteral("exported.m3u"));
        test.panels.answer = QUrl::fromLocalFile(path);
        test.user.click(exportButton);
        QCOMPARE(test.panels.shownSavePanels.size(), 1);
        QTRY_COMPARE(test.model.toastMessage(), QStringLiteral("Exported: exported.m3u"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll().startsWith("#EXTM3U\n#EXTINF:-1 tvg-name=\"Link 0\""));
    }

    void nothingIsExported()
    {
        Panel test;
        QVERIFY(test.isUp());
        test.user.click(exportButton);
        QVERIFY(test.panels.shownSavePanels.isEmpty());
    }
};

int main(int argc, char *argv[])
{
    LocalPanelTest test;
    return runWindowTest(test, argc, argv);
}
#include "tst_local_panel.moc"
