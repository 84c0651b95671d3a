// A list of channels: the rows that are on screen, and the keys.
#include "ContentWindow.h"
#include "support/TestServer.h"

#include <QSignalSpy>

using namespace zeph;

namespace {

const QString search = QStringLiteral("Search local M3U8 links");
const QString edit = QStringLiteral("Edit");
const QString deleteButton = QStringLiteral("Delete");

QString playHelp(int link)
{
    return QStringLiteral("Play Link %1").arg(link);
}

void collectRows(QQuickItem &item, QList<QQuickItem *> &rows)
{
    if (!item.isVisible())
        return;
    if (item.property("isKeyRow").isValid()) {
        rows << &item;
        return;
    }
    for (QQuickItem *child : item.childItems())
        collectRows(*child, rows);
}

// Null when there is none.
QQuickItem *shownText(QQuickItem &item, const QString &text)
{
    if (!item.isVisible())
        return nullptr;
    if (item.property("text") == text && item.property("textFormat").isValid())
        return &item;
    for (QQuickItem *child : item.childItems()) {
        if (QQuickItem *found = shownText(*child, text))
            return found;
    }
    return nullptr;
}

struct List : ContentWindow {
    Driver user = driver();

    explicit List(int links)
    {
        view.localM3UStore()->replaceEntries(savedLinks(QStringLiteral("Link "), links));
        view.setSelectedSidebarSection(PlayerSidebarSection::LocalM3U);
        view.controlBar()->toggleSidebar();
    }

    bool isUp()
    {
        return ContentWindow::isUp()
            && QTest::qWaitFor(
                [this] { return user.shows(search) && user.pointIn(search, 0).x() == 10; },
                patience)
            && QTest::qWaitFor(
                [this] { return channels().count() == 0 || user.shows(playHelp(0)); }, patience);
    }
    ChannelListModel &channels() { return *view.channels()->localChannels(); }
    /// From top to bottom.
    QList<QQuickItem *> rows() const
    {
        QList<QQuickItem *> rows;
        collectRows(*window->contentItem(), rows);
        std::sort(rows.begin(), rows.end(),
            [](const QQuickItem *left, const QQuickItem *right) { return left->y() < right->y(); });
        return rows;
    }
    /// The numbers of those rows.
    QList<int> shownRows() const
    {
        QList<int> numbers;
        for (const QQuickItem *row : rows())
            numbers << row->property("index").toInt();
        return numbers;
    }
    QQuickItem &list() const { return *rows().constFirst()->parentItem(); }
    bool showsOnly(const QList<int> &numbers) const
    {
        return QTest::qWaitFor([&] { return shownRows() == numbers; }, patience);
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(window, key, modifiers);
    }
    void type(const QString &text) const
    {
        for (const QChar letter : text)
            QTest::sendKeyEvent(QTest::Click, window, Qt::Key_unknown, letter, {});
    }
    /// The keys go to the list's first row.
    void focusList() const { list().forceActiveFocus(Qt::TabFocusReason); }
};

} // namespace

#define VERIFY_FOCUSED(name) QTRY_COMPARE(test.user.focused(), QString(name))

class ChannelListTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("qrc|qml|symbol|QML"))); }

    void onlyWhatIsOnScreen_data()
    {
        QTest::addColumn<int>("links");
        QTest::newRow("1") << 1;
        QTest::newRow("2000") << 2000;
        QTest::newRow("20000") << 20'000;
    }
    void onlyWhatIsOnScreen()
    {
        QFETCH(int, links);
        List test(links);
        QVERIFY(test.isUp());
        const qsizetype fitting = static_cast<qsizetype>(test.list().height() / 44) + 1;
        QCOMPARE(test.rows().size(), std::min<qsizetype>(links, fitting));
        for (const QQuickItem *row : test.rows())
            QCOMPARE(row->y(), 44.0 * row->property("index").toInt());
        test.focusList();
        test.key(Qt::Key_End);
        QTRY_COMPARE(test.user.focused(), playHelp(links - 1));
        const QQuickItem *last = test.rows().constLast();
        QCOMPARE(last->property("index").toInt(), links - 1);
        QVERIFY(last->y() + 44 <= test.list().height() + 0.5);
        QVERIFY(test.rows().size() <= fitting + 1);
        test.key(Qt::Key_Home);
        QTRY_COMPARE(test.user.focused(), playHelp(0));
        QCOMPARE(test.rows().constFirst()->y(), 0.0);
    }

    void theWheelScrolls()
    {
        List test(100);
        QVERIFY(test.isUp());
        const QPointF place = test.user.pointIn(playHelp(1));
        QWheelEvent wheel(place, test.window->mapToGlobal(place), {}, { 0, -120 }, Qt::NoButton, {},
            Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(test.window, &wheel);
        QTRY_VERIFY(test.shownRows().constFirst() > 0);
        const QList<int> shown = test.shownRows();
        for (qsizetype i = 1; i < shown.size(); ++i)
            QCOMPARE(shown.at(i), shown.constFirst() + i);
        for (QQuickItem *row : test.rows())
            QCOMPARE(Driver::nameOf(row), playHelp(row->property("index").toInt()));
    }

    void rowsFollowTheList()
    {
        List test(3);
        QVERIFY(test.isUp());
        QVERIFY(test.showsOnly({ 0, 1, 2 }));
        LocalM3UStore &store = *test.view.localM3UStore();
        store.remove(store.entries().at(1));
        QVERIFY(test.showsOnly({ 0, 1 }));
        QVERIFY(test.user.shows(playHelp(2)));
        QVERIFY(!test.user.shows(playHelp(1)));
        store.saveToLocalM3U(savedLinks(QStringLiteral("New "), 1).constFirst());
        QVERIFY(test.showsOnly({ 0, 1, 2 }));
        QCOMPARE(Driver::nameOf(test.rows().constFirst()), QStringLiteral("Play New 0"));
        PlaylistEntry::Fields renamed = savedLinkFields(QStringLiteral("Renamed"));
        renamed.id = store.entries().at(2).id();
        store.update(renamed);
        QTRY_VERIFY(test.user.shows(QStringLiteral("Play Renamed")));
    }

    void aSearchStartsAtTheTop()
    {
        List test(500);
        QVERIFY(test.isUp());
        test.focusList();
        test.key(Qt::Key_End);
        QTRY_COMPARE(test.shownRows().constLast(), 499);
        test.view.channels()->setChannelSearch(QStringLiteral("1"));
        QTRY_VERIFY(test.user.shows(playHelp(1)));
        QCOMPARE(test.shownRows().constFirst(), 0);
        VERIFY_FOCUSED(playHelp(1));
        test.view.channels()->setChannelSearch(QStringLiteral("none"));
        QTRY_VERIFY(test.user.shows(QStringLiteral("No channel matches.")));
        QVERIFY(test.rows().isEmpty());
    }

    void theArrowsMove()
    {
        List test(100);
        QVERIFY(test.isUp());
        const double volume = test.model.volume();
        test.focusList();
        VERIFY_FOCUSED(playHelp(0));
        test.key(Qt::Key_Up);
        VERIFY_FOCUSED(playHelp(0));
        test.key(Qt::Key_Down);
        test.key(Qt::Key_Down);
        VERIFY_FOCUSED(playHelp(2));
        test.key(Qt::Key_Up);
        VERIFY_FOCUSED(playHelp(1));
        const int page = static_cast<int>(test.list().height() / 44);
        QVERIFY(page > 1);
        test.key(Qt::Key_PageDown);
        VERIFY_FOCUSED(playHelp(1 + page));
        test.key(Qt::Key_PageUp);
        VERIFY_FOCUSED(playHelp(1));
        test.key(Qt::Key_PageUp);
        VERIFY_FOCUSED(playHelp(0));
        test.key(Qt::Key_End);
        VERIFY_FOCUSED(playHelp(99));
        test.key(Qt::Key_Down);
        VERIFY_FOCUSED(playHelp(99));
        QCOMPARE(test.model.volume(), volume);
        QVERIFY(test.model.toastMessage().isEmpty());
    }

    void returnPlays()
    {
        List test(5);
        QVERIFY(test.isUp());
        test.focusList();
        test.key(Qt::Key_Down);
        test.key(Qt::Key_Return);
        QCOMPARE(test.model.title(), QStringLiteral("Link 1"));
        test.model.stop();
        QTest::simulateEvent(test.window, true, Qt::Key_Return, {}, QStringLiteral("\r"), true);
        QVERIFY(test.model.currentURL().isEmpty()); // A key that is held plays once.
        test.key(Qt::Key_Down);
        test.key(Qt::Key_Enter, Qt::KeypadModifier);
        QCOMPARE(test.model.title(), QStringLiteral("Link 2"));
        VERIFY_FOCUSED(playHelp(2));
    }

    void theSpaceBarIsThePlayers()
    {
        List test(5);
        QVERIFY(test.isUp());
        test.focusList();
        test.key(Qt::Key_Space);
        QVERIFY(!test.model.toastMessage().isEmpty()); // There is nothing to play.
        QCOMPARE(test.view.channels()->channelSearch(), QString());
        test.key(Qt::Key_Up, Qt::ShiftModifier);
        QCOMPARE(test.model.toastMessage(), QStringLiteral("Volume: 100%"));
    }

    void lettersGoOnInTheSearchField()
    {
        List test(30);
        QVERIFY(test.isUp());
        test.focusList();
        QTest::keyClick(test.window, 'k'); // Which else is the player's.
        VERIFY_FOCUSED(search);
        QCOMPARE(test.view.channels()->channelSearch(), QStringLiteral("k"));
        test.type(QStringLiteral(" 2"));
        QTRY_COMPARE(test.channels().count(), 11);
        QVERIFY(test.model.toastMessage().isEmpty());

        test.key(Qt::Key_Down);
        VERIFY_FOCUSED(playHelp(2));
        QTest::keyClick(test.window, '9');
        VERIFY_FOCUSED(search);
        QCOMPARE(test.view.channels()->channelSearch(), QStringLiteral("k 29"));
        QTRY_COMPARE(test.channels().count(), 1);
        test.key(Qt::Key_Return);
        VERIFY_FOCUSED(playHelp(29));
        QVERIFY(test.model.currentURL().isEmpty());
        test.key(Qt::Key_Return);
        QCOMPARE(test.model.title(), QStringLiteral("Link 29"));
    }

    void escapeEmptiesTheSearch()
    {
        List test(30);
        QVERIFY(test.isUp());
        test.user.click(search);
        test.type(QStringLiteral("29"));
        QTRY_COMPARE(test.channels().count(), 1);
        test.key(Qt::Key_Escape);
        QCOMPARE(test.view.channels()->channelSearch(), QString());
        VERIFY_FOCUSED(playHelp(0));
        test.view.channels()->setChannelSearch(QStringLiteral("28"));
        VERIFY_FOCUSED(playHelp(28));
        test.key(Qt::Key_Escape);
        QCOMPARE(test.view.channels()->channelSearch(), QString());
        VERIFY_FOCUSED(playHelp(0));
    }

    void aSearchWithoutMatches()
    {
        List test(3);
        QVERIFY(test.isUp());
        test.user.click(search);
        test.type(QStringLiteral("none"));
        QTRY_COMPARE(test.channels().count(), 0);
        test.key(Qt::Key_Down);
        test.key(Qt::Key_Return);
        VERIFY_FOCUSED(search);
        QVERIFY(test.model.currentURL().isEmpty());
    }

    void theKeysReachTheButtons()
    {
        List test(3);
        QVERIFY(test.isUp());
        test.focusList();
        test.key(Qt::Key_Right);
        VERIFY_FOCUSED(edit);
        test.key(Qt::Key_Right);
        VERIFY_FOCUSED(deleteButton);
        test.key(Qt::Key_Right);
        VERIFY_FOCUSED(deleteButton);
        test.key(Qt::Key_Left);
        VERIFY_FOCUSED(edit);
        test.key(Qt::Key_Left);
        VERIFY_FOCUSED(playHelp(0));
        test.key(Qt::Key_Left);
        VERIFY_FOCUSED(playHelp(0));
        test.key(Qt::Key_Tab);
        VERIFY_FOCUSED(edit);
        test.key(Qt::Key_Down);
        VERIFY_FOCUSED(playHelp(1));
        test.key(Qt::Key_Right);
        test.key(Qt::Key_Return);
        QCOMPARE(test.view.editForms().size(), 1);
        QVERIFY(test.model.currentURL().isEmpty());
    }

    void tabGoesThroughTheListOnce()
    {
        List test(50);
        QVERIFY(test.isUp());
        const QStringList names = test.user.tabOrder();
        const qsizetype row = names.indexOf(playHelp(0));
        QVERIFY(row > 0);
        QCOMPARE(names.at(row + 1), edit);
        QCOMPARE(names.at(row + 2), deleteButton);
        QVERIFY(!names.contains(playHelp(1)));
    }

    void aClickLeavesTheKeysToThePlayer()
    {
        List test(3);
        QVERIFY(test.isUp());
        test.user.click(search);
        VERIFY_FOCUSED(search);
        test.user.click(playHelp(1));
        QTRY_VERIFY(test.user.focused() != search);
        test.key(Qt::Key_Up, Qt::ShiftModifier);
        QCOMPARE(test.model.toastMessage(), QStringLiteral("Volume: 100%"));
        // The keys go on from there, should they be led to the list.
        test.list().forceActiveFocus(Qt::TabFocusReason);
        VERIFY_FOCUSED(playHelp(1));
    }

    void theCurrentRowStaysWithItsChannel()
    {
        List test(5);
        QVERIFY(test.isUp());
        test.focusList();
        test.key(Qt::Key_Down);
        LocalM3UStore &store = *test.view.localM3UStore();
        store.saveToLocalM3U(savedLinks(QStringLiteral("New "), 1).constFirst());
        VERIFY_FOCUSED(playHelp(1));
        store.remove(store.entries().at(2)); // That very one.
        VERIFY_FOCUSED(playHelp(2));
        store.clear();
        QTRY_VERIFY(test.rows().isEmpty());
    }

    void scrollingAwayKeepsTheKeys()
    {
        List test(100);
        QVERIFY(test.isUp());
        test.focusList();
        test.key(Qt::Key_Down);
        QQuickItem *flickable = test.list().parentItem();
        flickable->setProperty("contentY", 2000);
        QTRY_VERIFY(test.shownRows().constFirst() > 40);
        QVERIFY(!test.user.shows(playHelp(1)));
        QVERIFY(test.list().hasActiveFocus());
        test.key(Qt::Key_Down);
        VERIFY_FOCUSED(playHelp(2));
    }

    void oddNames_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("right to left") << QStringLiteral("قناة الجزيرة");
        QTest::newRow("combining") << QStringLiteral("e\u0301\u0302\u0303").repeated(50);
        QTest::newRow("zero width") << QStringLiteral("a\u200b\u200d\ufeffb");
        QTest::newRow("long") << QStringLiteral("x").repeated(10'000);
        QTest::newRow("long words") << QStringLiteral("word ").repeated(2000).trimmed();
        QTest::newRow("markup") << QStringLiteral("<b>bold</b> & <img src='file:///dev/zero'>");
    }
    void oddNames()
    {
        QFETCH(QString, name);
        List test(1);
        QVERIFY(test.isUp());
        PlaylistEntry::Fields fields = savedLinkFields(QStringLiteral("x"));
        fields.name = name;
        test.view.localM3UStore()->replaceEntries({ PlaylistEntry(fields) });
        QTRY_VERIFY(test.user.shows(QStringLiteral("Play ") + name));
        QCOMPARE(test.rows().size(), 1);
        QCOMPARE(test.rows().constFirst()->height(), 43.0);
        QCOMPARE(test.rows().constFirst()->width(), 226.0);
    }

    void aNameIsNoMarkupInItsToolTip()
    {
        List test(1);
        QVERIFY(test.isUp());
        PlaylistEntry::Fields fields = savedLinkFields(QStringLiteral("x"));
        fields.name = QStringLiteral("<img src='qrc:/none.png'>");
        const QString help = QStringLiteral("Play ") + fields.name;
        test.view.localM3UStore()->replaceEntries({ PlaylistEntry(fields) });
        QTRY_VERIFY(test.user.shows(help));
        const QQuickItem *row = test.rows().constFirst();
        QTest::mouseMove(test.window, row->mapToScene({ 20, 20 }).toPoint());
        const QQuickItem *toolTip = nullptr;
        QTRY_VERIFY((toolTip = shownText(*test.window->contentItem(), help)));
        QCOMPARE(toolTip->property("textFormat").toInt(), int(Qt::PlainText));
    }
};

int main(int argc, char *argv[])
{
    ChannelListTest test;
    return runWindowTest(test, argc, argv);
}
#include "tst_channel_list.moc"
