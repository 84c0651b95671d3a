// The main window: its sidebar, what is dropped on it, its sheets and alerts.
#include "ContentWindow.h"
#include "platform/PlayerNotifications.h"
#include "support/Patience.h"

#include <QFile>
#include <QMimeData>
#include <QSignalSpy>

#include <algorithm>

using namespace zeph;

namespace {

const QString addressField = QStringLiteral("Stream address");
const QString network = QStringLiteral("Network");
const QString localM3U = QStringLiteral("Local M3U");
const QString addLink = QStringLiteral("Add M3U8 Link");
const QString clearTitle = QStringLiteral("Delete All Local M3U8 Links?");
const QString deleteTitle = QStringLiteral("Delete Channel?");
const QString cancel = QStringLiteral("Cancel");

} // namespace

class ContentViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("qrc|qml|symbol"))); }

    void atFirst()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        QVERIFY(!test.view.showSidebar());
        QCOMPARE(test.view.selectedSidebarSection(), PlayerSidebarSection::Network);
        QVERIFY(!test.view.isFullScreen());
        QVERIFY(!test.view.fullScreenControlsVisible());
        QVERIFY(!test.view.isStreamAddressFocused());
        QVERIFY(!test.view.showMovieName());
        QVERIFY(test.view.networkPlaylist().isEmpty());
        QVERIFY(test.view.editForms().isEmpty());
        QVERIFY(!test.driver().shows(network));
    }

    void sections()
    {
        QCOMPARE(rawValue(PlayerSidebarSection::Network), QStringLiteral("network"));
        QCOMPARE(rawValue(PlayerSidebarSection::LocalM3U), QStringLiteral("localM3U"));
    }

    void theSidebarTakes246PointsFromThePicture()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        const Driver user = test.driver();
        const double bar = user.find(QStringLiteral("Playback controls"))->width();
        test.view.controlBar()->toggleSidebar();
        QCOMPARE(test.view.sidebarAnimation(), 180);
        QTRY_VERIFY(user.find(QStringLiteral("Playback controls"))->width() == bar - 246);
        QTRY_VERIFY(user.pointIn(network, 0, 0).x() >= 0);
        test.view.controlBar()->toggleSidebar();
        QTRY_VERIFY(user.find(QStringLiteral("Playback controls"))->width() == bar);
        QVERIFY(!user.shows(network));
    }

    void theSidebarIsMadeWhenItIsFirstShownAndKept()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        const Driver user = test.driver();
        const auto isMade = [&test](const QString &name) {
            const auto items = test.window->findChildren<QQuickItem *>();
            return std::any_of(items.begin(), items.end(),
                [&name](const QQuickItem *item) { return Driver::nameOf(item) == name; });
        };
        QVERIFY(!isMade(network));
        test.view.controlBar()->toggleSidebar();
        QVERIFY(isMade(network));
        QTRY_VERIFY(user.focused() == addressField);
        QVERIFY(!isMade(addLink));

        const QQuickItem *made = user.find(addressField);
        test.view.controlBar()->toggleSidebar();
        QTRY_VERIFY(!user.shows(addressField));
        test.view.controlBar()->toggleSidebar();
        QTRY_VERIFY(user.shows(addressField));
        QCOMPARE(user.find(addressField), made);
        test.view.setSelectedSidebarSection(PlayerSidebarSection::LocalM3U);
        QVERIFY(isMade(addLink));
    }

    void theSidebarSlides()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        QQuickItem *controls = test.driver().find(QStringLiteral("Playback controls"));
        const double width = controls->width();
        QSignalSpy resized(controls, &QQuickItem::widthChanged);
        test.view.controlBar()->toggleSidebar();
        QTRY_VERIFY(controls->width() == width - 246);
        QVERIFY(resized.size() > 2);
    }

    void theNetworkSectionFocusesItsAddress()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        test.view.setShowMovieName(true);
        QElapsedTimer time;
        time.start();
        test.view.controlBar()->toggleSidebar();
        QVERIFY(!test.view.showMovieName());
        QVERIFY(!test.view.isStreamAddressFocused());
        QTRY_VERIFY(test.driver().focused() == addressField);
        QVERIFY(time.elapsed() >= 170);
        QVERIFY(test.view.isStreamAddressFocused());

        test.view.setShowMovieName(true);
        test.view.controlBar()->toggleSidebar();
        QVERIFY(!test.view.isStreamAddressFocused());
        QVERIFY(!test.view.showMovieName());
        QTRY_VERIFY(test.driver().focused() != addressField);
    }

    void theLocalSectionDoesNot()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        test.view.setSelectedSidebarSection(PlayerSidebarSection::LocalM3U);
        QSignalSpy focused(&test.view, &ContentView::isStreamAddressFocusedChanged);
        test.view.setShowMovieName(true);
        test.view.controlBar()->toggleSidebar();
        QVERIFY(!test.view.showMovieName());
        QVERIFY(!focused.wait(400));
    }

    void aSidebarThatIsHiddenAtOnceIsNotFocused()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        QSignalSpy focused(&test.view, &ContentView::isStreamAddressFocusedChanged);
        test.view.controlBar()->toggleSidebar();
        test.view.controlBar()->toggleSidebar();
        QVERIFY(!focused.wait(400));
    }

    void aSectionThatIsLeftAtOnceIsNotFocused()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        QSignalSpy focused(&test.view, &ContentView::isStreamAddressFocusedChanged);
        test.view.controlBar()->toggleSidebar();
        test.view.setSelectedSidebarSection(PlayerSidebarSection::LocalM3U);
        outwait(ContentView::addressFocusDelay);
        QVERIFY(focused.isEmpty());
    }

    void buttonsChooseTheSection()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        const Driver user = test.driver();
        test.view.controlBar()->toggleSidebar();
        QTRY_VERIFY(user.focused() == addressField);
        QCOMPARE(user.role(network), QAccessible::RadioButton);
        QVERIFY(user.state(network).checked);
        user.click(localM3U);
        QCOMPARE(test.view.selectedSidebarSection(), PlayerSidebarSection::LocalM3U);
        QVERIFY(user.state(localM3U).checked);
        QVERIFY(!user.state(network).checked);
        QTRY_VERIFY(!user.shows(addressField));
        QTRY_VERIFY(user.shows(addLink));
    }

    void aClickOnThePictureClosesTheSidebar()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        test.view.controlBar()->toggleSidebar();
        QTest::mouseClick(test.window, Qt::LeftButton, {}, { 780, 20 });
        QVERIFY(!test.view.showSidebar());
        QCOMPARE(test.view.sidebarAnimation(), 160);
        QTest::mouseClick(test.window, Qt::LeftButton, {}, { 780, 20 });
        QVERIFY(!test.view.showSidebar());
    }

    void anAddressIsOpened()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        const Driver user = test.driver();
        test.view.controlBar()->toggleSidebar();
        QTRY_VERIFY(user.focused() == addressField);
        for (const QChar letter : QStringLiteral("ftp:x"))
            QTest::sendKeyEvent(QTest::Click, test.window, Qt::Key_unknown, letter, {});
        QCOMPARE(test.view.address(), QStringLiteral("ftp:x"));
        QTest::keyClick(test.window, Qt::Key_Return);
        QTRY_VERIFY(user.shows(QStringLiteral("Enter a valid HTTP or HTTPS address.")));
    }

    void aListGoesToTheSectionThatIsSelected()
    {
        ContentWindow test;
        const QString file = test.folder.filePath(QStringLiteral("list.m3u"));
        write(file, "#EXTM3U\n#EXTINF:-1,One\nhttp://h/1\n#EXTINF:-1,Two\nhttp://h/2\n");
        test.panels.answer = QUrl::fromLocalFile(file);
        test.model.importLocalM3U({});
        QCOMPARE(names(test.view.networkPlaylist()),
            (QStringList { QStringLiteral("One"), QStringLiteral("Two") }));
        QVERIFY(test.view.localM3UStore()->entries().isEmpty());

        test.view.setSelectedSidebarSection(PlayerSidebarSection::LocalM3U);
        write(file, "#EXTM3U\n#EXTINF:-1,Three\nhttp://h/3\n");
        test.model.importLocalM3U({});
        QCOMPARE(names(test.view.networkPlaylist()),
            (QStringList { QStringLiteral("One"), QStringLiteral("Two") }));
        QCOMPARE(
            names(test.view.localM3UStore()->entries()), QStringList { QStringLiteral("Three") });
        LocalM3UStore stored(test.defaults, test.model, test.panels);
        QCOMPARE(names(stored.entries()), QStringList { QStringLiteral("Three") });

        write(file, {});
        test.model.importLocalM3U({});
        test.model.clearNetworkStream();
        QVERIFY(test.model.playlist().isEmpty());
        QCOMPARE(
            names(test.view.localM3UStore()->entries()), QStringList { QStringLiteral("Three") });
    }

    void anImportedListIsTakenOnce_data()
    {
        QTest::addColumn<PlayerSidebarSection>("section");
        QTest::newRow("network") << PlayerSidebarSection::Network;
        QTest::newRow("local") << PlayerSidebarSection::LocalM3U;
    }
    void anImportedListIsTakenOnce()
    {
        QFETCH(PlayerSidebarSection, section);
        ContentWindow test;
        const QString file = test.folder.filePath(QStringLiteral("list.m3u"));
        write(file, "#EXTM3U\n#EXTINF:-1,One\nhttp://h/1\n");
        test.panels.answer = QUrl::fromLocalFile(file);
        test.view.setSelectedSidebarSection(section);
        QSignalSpy changed(test.view.localM3UStore(), &LocalM3UStore::entriesChanged);
        test.view.importLocalPlaylist();
        QCOMPARE(changed.size(), 1);
        LocalM3UStore stored(test.defaults, test.model, test.panels);
        QCOMPARE(names(stored.entries()), QStringList { QStringLiteral("One") });
    }

    void openingPlaysUnderTheFileName()
    {
        ContentWindow test;
        test.view.openUrl(QUrl(QStringLiteral("file:///nowhere/a%20film.mkv")));
        QCOMPARE(test.model.title(), QStringLiteral("a film.mkv"));
        QVERIFY(!test.model.isLiveStream());
    }

    void drops_data()
    {
        QTest::addColumn<QList<QUrl>>("urls");
        QTest::addColumn<QString>("title");
        const QUrl one(QStringLiteral("file:///nowhere/one.mkv"));
        const QUrl two(QStringLiteral("file:///nowhere/two.mkv"));
        const QUrl page(QStringLiteral("https://h/page"));
        const QString nothing = QStringLiteral("Zeph Player");
        QTest::newRow("a file") << QList<QUrl> { one } << QStringLiteral("one.mkv");
        QTest::newRow("several files") << QList<QUrl> { two, one } << QStringLiteral("two.mkv");
        QTest::newRow("no file") << QList<QUrl> { page } << nothing;
        QTest::newRow("first no file") << QList<QUrl> { page, one } << nothing;
        QTest::newRow("nothing") << QList<QUrl> {} << nothing;
        QTest::newRow("no address") << QList<QUrl> { QUrl() } << nothing;
    }
    void drops()
    {
        QFETCH(QList<QUrl>, urls);
        QFETCH(QString, title);
        ContentWindow test;
        QVERIFY(test.isUp());
        QMimeData data;
        data.setUrls(urls);
        const QPoint place(300, 200);
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(test.window, &enter);
        QCOMPARE(enter.isAccepted(), title != QStringLiteral("Zeph Player"));
        QDropEvent drop(QPointF(place), Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(test.window, &drop);
        QCOMPARE(test.model.title(), title);
    }

    void textIsNotDropped()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        QMimeData data;
        data.setText(QStringLiteral("/nowhere/one.mkv"));
        QDragEnterEvent enter({ 300, 200 }, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(test.window, &enter);
        QVERIFY(!enter.isAccepted());
    }

    void aLinkIsAddedInASheet()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        const Driver user = test.driver();
        test.view.addLocalEntry();
        test.view.addLocalEntry(); // There is one already.
        QCOMPARE(test.view.editForms().size(), 1);
        QTRY_VERIFY(user.focused() == QStringLiteral("Channel or video name"));
        QVERIFY(user.shows(addLink));
        LocalM3UItemEditView *form = test.view.editForms().constFirst();
        form->setProperty("name", QStringLiteral("News"));
        form->setProperty("address", QStringLiteral("http://h/news.m3u8"));
        form->save();
        QVERIFY(test.view.editForms().isEmpty());
        QCOMPARE(
            names(test.view.localM3UStore()->entries()), QStringList { QStringLiteral("News") });
        QTRY_VERIFY(!user.shows(QStringLiteral("Channel or video name")));
    }

    void aLinkIsEditedInASheet()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        test.view.localM3UStore()->replaceEntries(savedLinks(QStringLiteral("Link "), 2));
        test.view.editLocalEntry(test.view.localM3UStore()->entries().at(1));
        const Driver user = test.driver();
        QTRY_VERIFY(user.shows(QStringLiteral("Edit M3U8 Link")));
        test.view.editForms().constFirst()->setProperty("name", QStringLiteral("Renamed"));
        QTest::keyClick(test.window, Qt::Key_Return);
        QCOMPARE(names(test.view.localM3UStore()->entries()),
            (QStringList { QStringLiteral("Link 0"), QStringLiteral("Renamed") }));

        test.view.editLocalEntry(test.view.localM3UStore()->entries().at(0));
        QTRY_VERIFY(user.focused() == QStringLiteral("Channel or video name"));
        QTest::keyClick(test.window, Qt::Key_Escape);
        QVERIFY(test.view.editForms().isEmpty());
    }

    void clearingAsksFirst()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        const Driver user = test.driver();
        test.view.localM3UStore()->replaceEntries(savedLinks(QStringLiteral("Link "), 3));
        test.view.setConfirmingLocalClear(true);
        QTRY_VERIFY(user.focused() == cancel);
        QVERIFY(user.shows(clearTitle));
        QVERIFY(user.shows(QStringLiteral("This permanently deletes every saved local M3U8 link. "
                                          "This action cannot be undone.")));
        user.click(cancel);
        QVERIFY(!test.view.confirmingLocalClear());
        QTRY_VERIFY(!user.shows(clearTitle));
        QCOMPARE(test.view.localM3UStore()->entries().size(), 3);

        test.view.setConfirmingLocalClear(true);
        QTRY_VERIFY(user.focused() == cancel);
        user.click(QStringLiteral("Delete Permanently"));
        QVERIFY(test.view.localM3UStore()->entries().isEmpty());
        QVERIFY(!test.view.confirmingLocalClear());
        QTRY_VERIFY(!user.shows(clearTitle));
    }

    void escapeClosesAnAlert()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        const Driver user = test.driver();
        for (int i = 0; i < 2; ++i) {
            test.view.setConfirmingLocalClear(true);
            QTRY_VERIFY(user.focused() == cancel);
            QTest::keyClick(test.window, Qt::Key_Escape);
            QTRY_VERIFY(!test.view.confirmingLocalClear());
            QTRY_VERIFY(!user.shows(clearTitle));
        }
    }

    void deletingAsksFirst()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        const Driver user = test.driver();
        LocalM3UStore &store = *test.view.localM3UStore();
        store.replaceEntries(savedLinks(QStringLiteral("Link "), 3));
        QCOMPARE(test.view.localDeleteMessage(),
            QStringLiteral(
                "Are you sure you want to delete this channel? This action cannot be undone."));
        test.view.setDeletingLocalEntry(store.entries().at(1));
        QTRY_VERIFY(user.focused() == cancel);
        QVERIFY(user.shows(deleteTitle));
        QVERIFY(user.shows(QStringLiteral("Are you sure you want to delete \"Link 1\" from Local "
                                          "M3U? This action cannot be undone.")));
        user.click(cancel);
        QVERIFY(!test.view.confirmingLocalDelete());
        QCOMPARE(store.entries().size(), 3);
        QTRY_VERIFY(!user.shows(deleteTitle));

        test.view.setDeletingLocalEntry(store.entries().at(1));
        QTRY_VERIFY(user.focused() == cancel);
        user.click(QStringLiteral("Delete"));
        QCOMPARE(names(store.entries()),
            (QStringList { QStringLiteral("Link 0"), QStringLiteral("Link 2") }));
        QCOMPARE(test.model.toastMessage(), QStringLiteral("Removed: Link 1"));
        QVERIFY(!test.view.confirmingLocalDelete());
    }

    void deletingGoesById()
    {
        ContentWindow test;
        QList<PlaylistEntry> links = savedLinks(QStringLiteral("Link "), 2);
        PlaylistEntry::Fields twin = savedLinkFields(QStringLiteral("Twin"));
        twin.id = links.at(0).id();
        test.view.localM3UStore()->replaceEntries(links);
        test.view.setDeletingLocalEntry(links.at(0));
        links << PlaylistEntry(twin);
        test.view.localM3UStore()->replaceEntries(links); // The list changes while the alert is up.
        test.view.deleteLocalEntry();
        QCOMPARE(
            names(test.view.localM3UStore()->entries()), QStringList { QStringLiteral("Link 1") });
    }

    void keysInASheetAreTheSheets()
    {
        ContentWindow test;
        QVERIFY(test.isUp());
        test.view.addLocalEntry();
        QTRY_VERIFY(test.driver().focused() == QStringLiteral("Channel or video name"));
        QTest::keyClick(test.window, Qt::Key_F);
        QTest::keyClick(test.window, Qt::Key_Space);
        QVERIFY(!test.view.isFullScreen());
        QVERIFY(test.model.toastMessage().isEmpty());
    }

private:
    static void write(const QString &path, const QByteArray &content)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }
};

int main(int argc, char *argv[])
{
    ContentViewTest test;
    return runWindowTest(test, argc, argv);
}
#include "tst_content_view.moc"
