// The built program's list of channels, from a server, driven from outside.
#include "SidebarPlayer.h"

#include <QBuffer>
#include <QClipboard>

using zeph::TestServer;

namespace {

const QString path = QStringLiteral("/list.m3u");
const QString logoPath = QStringLiteral("/logo.png");
const QString openButton = QStringLiteral("Open the stream manually");
const QString clearButton = QStringLiteral("Clear playlist and stop network playback");
const QString save = QStringLiteral("Save to Local M3U");
const QString saved = QStringLiteral("Saved to Local M3U (Click to re-save)");
const QString networkSearch = QStringLiteral("Search channels");
const QString localSearch = QStringLiteral("Search local M3U8 links");
const QColor logoColour(255, 0, 255);

const QByteArray channels = "#EXTM3U\n"
                            "#EXTINF:-1 tvg-country=\"DE\" group-title=\"News\",Colours\n"
                            "/hls-colours/index.m3u8\n"
                            "#EXTINF:-1 tvg-country=\"AT\" group-title=\"Sports\",Numbers\n"
                            "/hls/index.m3u8\n"
                            "#EXTINF:-1,World news\n"
                            "/none/index.m3u8\n";

QByteArray logo()
{
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(logoColour);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return bytes;
}

/// Another program, which offers a text on the clipboard.
class ClipboardSource {
public:
    explicit ClipboardSource(const QString &text) : m_text(text)
    {
        m_process.start(qEnvironmentVariable("ZEPH_CLIPBOARD_SOURCE"), { text });
        m_process.waitForStarted();
    }
    ~ClipboardSource()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    bool offers() const
    {
        return QTest::qWaitFor(
            [this] { return QGuiApplication::clipboard()->text() == m_text; }, patience);
    }

private:
    const QString m_text;
    QProcess m_process;
};

struct Station : TestServer {
    Station() : TestServer(qEnvironmentVariable("ZEPH_CLIPS")) { serve(path, channels); }
};

} // namespace

class ChannelBrowsingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_settings = std::make_unique<OwnSettings>(); }

    void aPastedAddressOpensByItself()
    {
        const Station station;
        const QString address = station.url(path).toString();
        const ClipboardSource clipboard(address + u'\n');
        QVERIFY(clipboard.offers());
        const SidebarPlayer player(m_bus);
        QVERIFY(player.showSidebar());
        player.window().press(QStringLiteral("ctrl+v"));
        QVERIFY(player.awaitHeading(networkCount(3, 3)));
        QCOMPARE(player.find(Role::TextField, addressField).text(), address);
        QCOMPARE(station.requestCount(path), 1);
        QVERIFY(player.awaitChannel(QStringLiteral("Colours")));
    }

    void whatIsNotTypedCountsLikewise()
    {
        const Station station;
        const SidebarPlayer player(m_bus);
        QVERIFY(player.showSidebar());
        QVERIFY(player.find(Role::TextField, addressField).setText(station.url(path).toString()));
        QVERIFY(player.awaitHeading(networkCount(3, 3)));
        QVERIFY(player.await(Role::TextField, networkSearch).setText(QStringLiteral("news")));
        QVERIFY(player.awaitHeading(networkCount(2, 3)));
    }

    void otherSchemesDoNotOpenByThemselves()
    {
        const SidebarPlayer player(m_bus);
        QVERIFY(player.showSidebar());
        QVERIFY(player.typeInto(addressField, QStringLiteral("ftp://127.0.0.1/list.m3u")));
        const QString error = QStringLiteral("Enter a valid HTTP or HTTPS address.");
        QVERIFY(!QTest::qWaitFor([&] { return player.shows(Role::Alert, error); }, 1500));
        QVERIFY(player.pressButton(openButton));
        QVERIFY(player.await(Role::Alert, error));
        QCOMPARE(player.title(), QStringLiteral("Zeph Player"));
    }

    void aChannelIsPlayedAndCleared()
    {
        const Station station;
        const SidebarPlayer player(m_bus);
        QVERIFY(player.showSidebar());
        QVERIFY(player.open(station.url(path)));
        QVERIFY(player.awaitChannel(QStringLiteral("Colours")).press());
        QTRY_COMPARE(player.title(), QStringLiteral("Colours"));
        QVERIFY(player.awaitColours());

        QVERIFY(player.pressButton(clearButton));
        QTRY_VERIFY(!player.shows(Role::Heading, networkCount(3, 3)));
        QVERIFY(player.awaitFocus(addressField));
        QCOMPARE(player.focused().text(), QString());
        QVERIFY(!player.showsChannel(QStringLiteral("Colours")));
        QVERIFY(player.await(Role::Button, QStringLiteral("Open Media")));
        QTRY_VERIFY(!player.showsColours());
        QTRY_COMPARE(player.title(), QStringLiteral("Zeph Player"));
    }

    void aLogoIsShown()
    {
        Station station;
        station.serve(logoPath, logo(), "image/png");
        station.serve(path,
            "#EXTM3U\n#EXTINF:-1 tvg-logo=\"" + station.url(logoPath).toEncoded()
                + "\",Colours\n/hls-colours/index.m3u8\n");
        const SidebarPlayer player(m_bus);
        QVERIFY(player.showSidebar());
        QVERIFY(player.open(station.url(path)));
        const AccessibleObject row = player.awaitChannel(QStringLiteral("Colours"));
        QTRY_COMPARE(station.answeredCount(logoPath), 1);
        // The logo begins seven pixels from the left of its row, and is 24 pixels wide.
        const QPoint middle(7 + 24 / 2, row.rectangle().height() / 2);
        QTRY_COMPARE(player.picture().pixelColor(
                         row.rectangle().topLeft() + middle - player.window().contents().topLeft()),
            logoColour);
    }

    void aChannelIsSaved()
    {
        const Station station;
        {
            const SidebarPlayer player(m_bus);
            QVERIFY(player.showSidebar());
            QVERIFY(player.open(station.url(path)));
            QVERIFY(player.pressButtonOf(QStringLiteral("Numbers"), save));
            QVERIFY(player.await(Role::Alert, QStringLiteral("Saved to Local M3U: Numbers")));
            QVERIFY(player.await(Role::Button, saved));
        }
        const SidebarPlayer player(m_bus);
        QVERIFY(player.showSidebar());
        QVERIFY(player.showSection(localSection));
        QVERIFY(player.awaitHeading(localCount(1, 1)));
        QVERIFY(player.awaitChannel(QStringLiteral("Numbers")));
        // It is known as the same when the list is opened again.
        QVERIFY(player.showSection(networkSection));
        QVERIFY(player.open(station.url(path)));
        QVERIFY(player.pressButtonOf(QStringLiteral("Numbers"), saved));
        QVERIFY(player.awaitChannel(QStringLiteral("Numbers")));
        QVERIFY(player.showSection(localSection));
        QVERIFY(player.awaitHeading(localCount(1, 1)));
    }

    void theSectionsShareSearchAndFilters()
    {
        const Station station;
        const SidebarPlayer player(m_bus);
        QVERIFY(player.showSidebar());
        QVERIFY(player.open(station.url(path)));
        QVERIFY(player.pressButtonOf(QStringLiteral("Colours"), save));
        QVERIFY(player.await(Role::Button, saved));
        QVERIFY(player.pressButtonOf(QStringLiteral("Numbers"), save));
        QVERIFY(player.await(Role::Alert, QStringLiteral("Saved to Local M3U: Numbers")));
        QVERIFY(player.typeInto(networkSearch, QStringLiteral("NEWS")));
        QVERIFY(player.awaitHeading(networkCount(2, 3)));
        QTRY_VERIFY(!player.showsChannel(QStringLiteral("Numbers")));

        QVERIFY(player.showSection(localSection));
        QVERIFY(player.awaitHeading(localCount(1, 2)));
        QVERIFY(player.awaitChannel(QStringLiteral("Colours")));
        QCOMPARE(player.find(Role::TextField, localSearch).text(), QStringLiteral("NEWS"));
        player.await(Role::TextField, localSearch).focus();
        player.window().press(QStringLiteral("Escape"));
        QVERIFY(player.awaitHeading(localCount(2, 2)));

        const QString austria = QStringLiteral("Austria");
        QVERIFY(player.pressButton(QStringLiteral("Countries")));
        QVERIFY(player.press(Role::MenuItem, austria));
        QVERIFY(player.awaitHeading(localCount(1, 2)));
        QTRY_VERIFY(!player.showsChannel(QStringLiteral("Colours")));
        QVERIFY(player.showSection(networkSection));
        QVERIFY(player.awaitHeading(networkCount(1, 3)));
        QVERIFY(player.awaitChannel(QStringLiteral("Numbers")));
        QVERIFY(player.shows(Role::Button, austria));
        QVERIFY(player.pressButton(QStringLiteral("Category")));
        QVERIFY(player.press(Role::MenuItem, QStringLiteral("News")));
        QVERIFY(player.awaitHeading(networkCount(0, 3)));
        QVERIFY(player.await(Role::Label, QStringLiteral("No channel matches.")));
        QVERIFY(player.showSection(localSection));
        QVERIFY(player.awaitHeading(localCount(0, 2)));
        QVERIFY(player.pressButton(austria));
        QVERIFY(player.press(Role::MenuItem, QStringLiteral("All Countries")));
        QVERIFY(player.awaitHeading(localCount(1, 2)));
        QVERIFY(player.awaitChannel(QStringLiteral("Colours")));
    }

    void theFirstOfTwoListsIsTooLate()
    {
        Station station;
        const QString other = QStringLiteral("/other.m3u");
        station.serve(other, "#EXTM3U\n#EXTINF:-1,Other\n/other.m3u8\n");
        station.hold(path);
        const SidebarPlayer player(m_bus);
        QVERIFY(player.showSidebar());
        QVERIFY(player.open(station.url(path)));
        QTRY_COMPARE(station.requestCount(path), 1);
        QVERIFY(player.open(station.url(other)));
        QVERIFY(player.awaitHeading(networkCount(1, 1)));
        station.letGo(path);
        QTRY_COMPARE(station.answeredCount(path), 1);
        QVERIFY(!QTest::qWaitFor(
            [&] { return player.shows(Role::Heading, networkCount(3, 3)); }, 1000));
        QVERIFY(player.awaitChannel(QStringLiteral("Other")));
    }

private:
    AccessibilityBus m_bus;
    std::unique_ptr<OwnSettings> m_settings;
};

QTEST_MAIN(ChannelBrowsingTest)
#include "tst_channel_browsing.moc"
