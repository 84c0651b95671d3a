// The network panel, used as its user would.
#include "NetworkPanel.h"

#include <QClipboard>
#include <QSignalSpy>

using namespace zeph;

namespace {

const QString openButton = QStringLiteral("Open the stream manually");
const QString clearButton = QStringLiteral("Clear playlist and stop network playback");
const QString countries = QStringLiteral("Countries");
const QString category = QStringLiteral("Category");
const QString save = QStringLiteral("Save to Local M3U");
const QString saved = QStringLiteral("Saved to Local M3U (Click to re-save)");
const QString noMatch = QStringLiteral("No channel matches.");

QString count(int shown, int total)
{
    return QStringLiteral("IPTV CHANNELS  \u00b7  %1 / %2").arg(shown).arg(total);
}

QString playHelp(const QString &name)
{
    return QStringLiteral("Play ") + name;
}

QByteArray manyChannels(int channels)
{
    QByteArray list = "#EXTM3U\n";
    for (int i = 0; i < channels; ++i)
        list += "#EXTINF:-1,Channel " + QByteArray::number(i) + "\n/" + QByteArray::number(i)
            + ".m3u8\n";
    return list;
}

} // namespace

class NetworkPanelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("qrc|qml|symbol|QML"))); }

    void atFirst()
    {
        Panel test;
        QVERIFY(test.isUp());
        QVERIFY(
            test.user.shows(QStringLiteral("YouTube and OK videos, .m3u8 streams and .m3u lists")));
        QVERIFY(!test.user.shows(searchField));
        QVERIFY(!test.user.shows(nameField));
        QVERIFY(!test.user.shows(count(0, 0)));
    }

    void toolTipsSayWhatScreenReadersSay()
    {
        Panel test;
        QVERIFY(test.showsList());
        for (const QString &name : { addressField, openButton, addName, clearButton, searchField,
                 countries, category, playHelp(QStringLiteral("One")), save }) {
            QTRY_VERIFY2(test.user.shows(name), qPrintable(name));
            QVERIFY2(test.user.saysToolTip(name), qPrintable(name));
        }
    }

    void controls_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QAccessible::Role>("role");
        QTest::newRow("address") << addressField << QAccessible::EditableText;
        QTest::newRow("open") << openButton << QAccessible::Button;
        QTest::newRow("name") << addName << QAccessible::Button;
        QTest::newRow("clear") << clearButton << QAccessible::Button;
        QTest::newRow("search") << searchField << QAccessible::EditableText;
        QTest::newRow("countries") << countries << QAccessible::ButtonMenu;
        QTest::newRow("category") << category << QAccessible::ButtonMenu;
        QTest::newRow("list") << count(3, 3) << QAccessible::Heading;
        QTest::newRow("row") << playHelp(QStringLiteral("One")) << QAccessible::ListItem;
        QTest::newRow("save") << save << QAccessible::Button;
    }
    void controls()
    {
        QFETCH(QString, name);
        QFETCH(QAccessible::Role, role);
        Panel test;
        QVERIFY(test.showsList());
        QTRY_VERIFY(test.user.shows(name));
        QCOMPARE(test.user.role(name), role);
    }

    void theListFillsThePanel()
    {
        Panel test;
        QVERIFY(test.showsList());
        const QQuickItem *row = nullptr;
        QTRY_VERIFY((row = test.user.find(playHelp(QStringLiteral("One")))));
        const QQuickItem *list = row->parentItem();
        QCOMPARE(QAccessible::queryAccessibleInterface(const_cast<QQuickItem *>(list))->role(),
            QAccessible::List);
        QCOMPARE(list->mapToScene({ 0, list->height() }).y(), test.window->height() - 10.0);
        QCOMPARE(row->width(), 226.0);
    }

    void aPastedAddressOpensByItself()
    {
        Panel test;
        QVERIFY(test.isUp());
        QGuiApplication::clipboard()->setText(test.server.url(path).toString() + QLatin1Char('\n'));
        QElapsedTimer time;
        time.start();
        test.key(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(test.view.address(), test.server.url(path).toString());
        QCOMPARE(test.user.find(addressField)->property("text").toString(), test.view.address());
        QTRY_VERIFY(test.user.shows(count(3, 3)));
        QVERIFY(time.elapsed() >= 440);
    }

    void blanksDoNotStayInTheField()
    {
        Panel test;
        QVERIFY(test.isUp());
        test.type(QStringLiteral("a "));
        QCOMPARE(test.user.find(addressField)->property("text").toString(), QStringLiteral("a"));
    }

    void theNameIsOptional()
    {
        Panel test;
        QVERIFY(test.isUp());
        test.user.click(addName);
        QTRY_VERIFY(test.user.shows(nameField));
        QVERIFY(test.view.movieNameToggleHovered());
        test.user.click(nameField);
        test.type(QStringLiteral("Mine"));
        test.view.setAddress(test.server.url(path).toString());
        test.user.click(openButton);
        QTRY_VERIFY(test.user.shows(count(3, 3)));
        QCOMPARE(test.model.title(), QStringLiteral("Mine"));
        test.user.click(hideName);
        QVERIFY(!test.user.shows(nameField));
    }

    void theListLoads()
    {
        Panel test;
        QVERIFY(test.isUp());
        const QByteArray list = manyChannels(5000);
        test.server.pauseWithin(path, list, 0.5);
        test.view.setAddress(test.server.url(path).toString());
        QTRY_VERIFY(test.model.loadedBytes() > list.size() / 3);
        const QString notice =
            QStringLiteral("Loading: ") + QLocale().formattedDataSize(test.model.loadedBytes());
        QVERIFY(test.user.shows(notice));
        QCOMPARE(test.user.role(notice), QAccessible::ProgressBar);
        QCOMPARE(
            test.user.find(openButton)->property("text").toString(), QStringLiteral("Loading"));
        test.server.release();
        QTRY_VERIFY(test.user.shows(count(5000, 5000)));
        QVERIFY(!test.user.shows(notice));
        QCOMPARE(test.user.find(openButton)->property("text").toString(), QStringLiteral("Play"));
    }

    void errorsAreShown()
    {
        Panel test;
        QVERIFY(test.isUp());
        test.type(QStringLiteral("ftp://h"));
        test.user.click(openButton);
        const QString error = QStringLiteral("Enter a valid HTTP or HTTPS address.");
        QTRY_VERIFY(test.user.shows(error));
        QCOMPARE(test.user.role(error), QAccessible::AlertMessage);
    }

    void aRowIsPlayed()
    {
        Panel test;
        QVERIFY(test.showsList());
        const QString two = playHelp(QStringLiteral("Two"));
        QTRY_VERIFY(test.user.shows(two));
        test.user.click(two);
        QCOMPARE(test.model.currentURL(), test.server.url(QStringLiteral("/2.m3u8")));
        QCOMPARE(test.model.title(), QStringLiteral("Two"));
        QVERIFY(test.model.isLiveStream());
        QVERIFY(!test.view.isStreamAddressFocused()); // The keys are the player's again.
        QTRY_VERIFY(test.user.find(two)->property("isCurrent").toBool());
    }

    void aRowIsPlayedByAScreenReader()
    {
        Panel test;
        QVERIFY(test.showsList());
        QQuickItem *two = nullptr;
        QTRY_VERIFY((two = test.user.find(playHelp(QStringLiteral("Two")))));
        QAccessible::queryAccessibleInterface(two)->actionInterface()->doAction(
            QAccessibleActionInterface::pressAction());
        QCOMPARE(test.model.title(), QStringLiteral("Two"));
    }

    void aChannelIsSaved()
    {
        Panel test;
        QVERIFY(test.showsList());
        QTRY_VERIFY(test.user.shows(save));
        QVERIFY(!test.user.shows(saved));
        test.user.click(save); // Of the first row.
        QCOMPARE(test.model.toastMessage(), QStringLiteral("Saved to Local M3U: One"));
        QTRY_VERIFY(test.user.shows(saved));
        QCOMPARE(test.user.find(saved)->property("symbol").toString(),
            QStringLiteral("checkmark.circle.fill"));
        QVERIFY(test.model.currentURL().isEmpty()); // The row itself was not clicked.
        LocalM3UStore stored(test.defaults, test.model, test.panels);
        QCOMPARE(stored.entries().size(), 1);
        test.user.click(saved);
        QCOMPARE(test.view.localM3UStore()->entries().size(), 1);
    }

    void theListIsSearched()
    {
        Panel test;
        QVERIFY(test.showsList());
        QTRY_VERIFY(test.user.shows(searchField));
        test.user.click(searchField);
        test.type(QStringLiteral("NEWS"));
        QTRY_VERIFY(test.user.shows(count(2, 3)));
        QVERIFY(test.user.shows(playHelp(QStringLiteral("One"))));
        QVERIFY(test.user.shows(playHelp(QStringLiteral("Three news"))));
        QTRY_VERIFY(!test.user.shows(playHelp(QStringLiteral("Two"))));
        test.type(QStringLiteral("paper"));
        QTRY_VERIFY(test.user.shows(count(0, 3)));
        QTRY_VERIFY(test.user.shows(noMatch));
        test.key(Qt::Key_Escape);
        QTRY_VERIFY(test.user.shows(count(3, 3)));
        QCOMPARE(test.user.find(searchField)->property("text").toString(), QString());
    }

    void aCountryIsChosen()
    {
        Panel test;
        QVERIFY(test.showsList());
        QTRY_VERIFY(test.user.shows(countries));
        test.user.click(countries);
        const QString austria = QStringLiteral("Austria");
        const QString germany = QStringLiteral("Germany");
        QTRY_VERIFY(test.user.shows(germany));
        QCOMPARE(test.user.role(germany), QAccessible::MenuItem);
        QVERIFY(test.user.pointIn(austria).y() < test.user.pointIn(germany).y());
        QVERIFY(!test.user.state(germany).checked);
        test.user.click(germany);
        QCOMPARE(test.view.channels()->selectedCountryCode(), QStringLiteral("DE"));
        QTRY_VERIFY(test.user.shows(count(1, 3)));
        QTRY_VERIFY(!test.user.shows(austria));
        QCOMPARE(test.user.role(germany), QAccessible::ButtonMenu); // Its name by now.
        test.user.click(germany);
        QTRY_VERIFY(test.user.shows(QStringLiteral("All Countries")));
        test.user.click(QStringLiteral("All Countries"));
        QTRY_VERIFY(test.user.shows(count(3, 3)));
    }

    void aSecondClickClosesAFilterMenu()
    {
        Panel test;
        QVERIFY(test.showsList());
        QTRY_VERIFY(test.user.shows(countries));
        test.user.click(countries);
        QTRY_VERIFY(test.user.shows(QStringLiteral("Germany")));
        test.user.click(countries);
        QTRY_VERIFY(!test.user.shows(QStringLiteral("Germany")));
    }

    void aCategoryIsChosenWithTheKeys()
    {
        Panel test;
        QVERIFY(test.showsList());
        QTRY_VERIFY(test.user.shows(category));
        test.user.find(category)->forceActiveFocus(Qt::TabFocusReason);
        test.key(Qt::Key_Return);
        QTRY_COMPARE(test.user.focused(), QStringLiteral("All Categories"));
        // The same key, still held, chooses nothing.
        QTest::simulateEvent(test.window, true, Qt::Key_Return, {}, QStringLiteral("\r"), true);
        QCOMPARE(test.user.focused(), QStringLiteral("All Categories"));
        test.key(Qt::Key_Down);
        test.key(Qt::Key_Down);
        QCOMPARE(test.user.focused(), QStringLiteral("Sports"));
        test.key(Qt::Key_Return);
        QTRY_VERIFY(test.user.shows(count(1, 3)));
        QTRY_COMPARE(test.user.focused(), QStringLiteral("Sports")); // The menu's button.
        test.key(Qt::Key_Return);
        QTRY_VERIFY(test.user.shows(QStringLiteral("News")));
        test.key(Qt::Key_Escape);
        QTRY_VERIFY(!test.user.shows(QStringLiteral("News")));
        QVERIFY(test.user.shows(count(1, 3)));
    }

    void lettersLeadToAChoice()
    {
        QByteArray list = "#EXTM3U\n";
        for (const char *group :
            { "Kids", "Movies", "Music", "News", "\u00c9conomie", "Science Fiction" })
            list += QByteArray("#EXTINF:-1 group-title=\"") + group + "\",One\n/1.m3u8\n";
        Panel test(list);
        QVERIFY(test.showsList());
        QTRY_VERIFY(test.user.shows(category));
        test.user.find(category)->forceActiveFocus(Qt::TabFocusReason);
        test.key(Qt::Key_Return);
        const auto leadsTo = [&test](const char *choice) {
            return QTest::qWaitFor(
                [&] { return test.user.focused() == QString::fromUtf8(choice); }, patience);
        };
        QVERIFY(leadsTo("All Categories"));
        test.key(Qt::Key_End);
        QVERIFY(leadsTo("\u00c9conomie"));
        test.key(Qt::Key_PageUp);
        QVERIFY(leadsTo("All Categories"));
        test.key(Qt::Key_PageDown);
        QVERIFY(leadsTo("\u00c9conomie"));
        test.key(Qt::Key_Home);
        QVERIFY(leadsTo("All Categories"));

        test.type(QStringLiteral("mu"));
        QVERIFY(leadsTo("Music"));
        outwait(std::chrono::seconds(1));
        test.type(QStringLiteral("m"));
        QVERIFY(leadsTo("Movies"));
        test.type(QStringLiteral("m"));
        QVERIFY(leadsTo("Music"));
        outwait(std::chrono::seconds(1));
        test.type(QStringLiteral("\u00c9"));
        QVERIFY(leadsTo("\u00c9conomie"));
        outwait(std::chrono::seconds(1));
        test.type(QStringLiteral("science f"));
        QVERIFY(leadsTo("Science Fiction"));
        outwait(std::chrono::seconds(1));
        test.type(QStringLiteral("z"));
        test.key(Qt::Key_Return);
        QTRY_COMPARE(test.view.channels()->selectedCategory(), QStringLiteral("Science Fiction"));
    }

    void clearing()
    {
        Panel test;
        QVERIFY(test.showsList());
        QTRY_VERIFY(test.user.shows(playHelp(QStringLiteral("Two"))));
        test.user.click(playHelp(QStringLiteral("Two")));
        test.view.channels()->setChannelSearch(QStringLiteral("n"));
        test.view.channels()->setSelectedCategory(QStringLiteral("News"));
        test.user.click(clearButton);
        QCOMPARE(test.view.address(), QString());
        QCOMPARE(test.view.channels()->channelSearch(), QString());
        QCOMPARE(test.view.channels()->selectedCategory(), QString());
        QVERIFY(test.model.currentURL().isEmpty());
        QTRY_VERIFY(!test.user.shows(searchField));
        QTRY_COMPARE(test.user.focused(), addressField);
    }

    void aMillionChannels()
    {
        constexpr int million = 1'000'000;
        Panel test(manyChannels(million));
        QVERIFY(test.isUp());
        test.view.setAddress(test.server.url(path).toString());
        test.view.openStream();
        // It takes its time under the sanitizers.
        QTRY_VERIFY_WITH_TIMEOUT(test.user.shows(count(million, million)), 5 * patience);
        QTRY_VERIFY(test.user.shows(playHelp(QStringLiteral("Channel 0"))));
        test.user.click(searchField);
        test.key(Qt::Key_Down);
        test.key(Qt::Key_End);
        QTRY_COMPARE(test.user.focused(), playHelp(QStringLiteral("Channel 999999")));
        const QQuickItem *last = test.window->activeFocusItem();
        QCOMPARE(last->y() + 44, last->parentItem()->height());
        test.type(QStringLiteral("99999"));
        QTRY_VERIFY_WITH_TIMEOUT(test.user.shows(count(19, million)), 5 * patience);
        QCOMPARE(test.user.focused(), searchField);
        test.key(Qt::Key_Down);
        QTRY_COMPARE(test.user.focused(), playHelp(QStringLiteral("Channel 99999")));
        test.key(Qt::Key_Return);
        QCOMPARE(test.model.title(), QStringLiteral("Channel 99999"));
    }

    void twoListsInARace()
    {
        Panel test;
        QVERIFY(test.isUp());
        const QString other = QStringLiteral("/other.m3u");
        test.server.serve(other, manyChannels(7));
        test.server.hold(path);
        test.view.setAddress(test.server.url(path).toString());
        test.view.openStream();
        QTRY_COMPARE(test.server.requestCount(path), 1);
        test.view.setAddress(test.server.url(other).toString());
        test.view.openStream();
        QTRY_VERIFY(test.user.shows(count(7, 7)));
        test.server.letGo(path);
        QTRY_COMPARE(test.server.answeredCount(path), 1);
        QTest::qWait(0);
        QVERIFY(test.user.shows(count(7, 7)));
    }
};

int main(int argc, char *argv[])
{
    NetworkPanelTest test;
    return runWindowTest(test, argc, argv);
}
#include "tst_network_panel.moc"
