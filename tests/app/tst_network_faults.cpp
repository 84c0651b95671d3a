// The built program while the network fails, as its user meets that.
#include "SidebarPlayer.h"
#include "support/LiveStream.h"

#include <QFile>

using zeph::LiveStream;
using zeph::TestServer;

namespace {

const QString listPath = QStringLiteral("/list.m3u");
const QString brokenPath = QStringLiteral("/broken.m3u");
const QString channel = QStringLiteral("Live");
const QString buffering = QStringLiteral("Buffering…");
const QString save = QStringLiteral("Save to Local M3U");
const QString saved = QStringLiteral("Saved to Local M3U (Click to re-save)");

/// A list of one channel that is live.
struct Station {
    Station() : stream(LiveStream::hls(folder.path())), server(folder.path())
    {
        server.serve(listPath, "#EXTM3U\n#EXTINF:-1,Live\n/live.m3u8\n");
    }

    // A channel with enough in it to start from.
    bool isOnAir() const
    {
        return QTest::qWaitFor(
            [this] { return QFile::exists(folder.filePath(QStringLiteral("live2.ts"))); },
            patience);
    }

    QTemporaryDir folder;
    LiveStream stream;
    TestServer server;
};

bool plays(const SidebarPlayer &player)
{
    return QTest::qWaitFor([&player] { return !player.shows(Role::Alert, buffering); }, patience)
        && player.pictureMoves() && !player.shows(Role::Alert, buffering);
}

bool playsAChannel(const SidebarPlayer &player, const Station &station)
{
    return player.showSidebar() && player.open(station.server.url(listPath))
        && player.awaitChannel(channel).press()
        && QTest::qWaitFor([&player] { return player.title() == channel; }, patience)
        && player.await(Role::Button, pauseButton) && plays(player);
}

} // namespace

class NetworkFaultsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_settings = std::make_unique<OwnSettings>(); }

    void aChannelPlaysOnOnceTheNetworkIsBack()
    {
        Station station;
        QVERIFY(station.isOnAir());
        const SidebarPlayer player(m_bus);
        QVERIFY(playsAChannel(player, station));

        station.server.stop();
        QVERIFY(player.await(Role::Alert, buffering));
        // The window goes on as ever.
        QVERIFY(player.showSection(localSection));
        QVERIFY(player.await(Role::Button, QStringLiteral("Add M3U8 Link")));
        QVERIFY(player.showSection(networkSection));
        QVERIFY(player.awaitChannel(channel));
        QVERIFY(player.shows(Role::Button, pauseButton));
        QVERIFY(player.shows(Role::Alert, buffering));

        station.server.start();
        QVERIFY(plays(player));
        QCOMPARE(player.title(), channel);
        QVERIFY(player.shows(Role::Button, pauseButton));
    }

    void anotherChannelCanBeChosenMeanwhile()
    {
        Station station;
        QVERIFY(station.isOnAir());
        const TestServer other(clip("hls-colours"));
        station.server.serve(listPath,
            "#EXTM3U\n#EXTINF:-1,Live\n/live.m3u8\n#EXTINF:-1,Colours\n"
                + other.url(QStringLiteral("/index.m3u8")).toEncoded());
        const SidebarPlayer player(m_bus);
        QVERIFY(playsAChannel(player, station));
        station.server.stop();
        QVERIFY(player.await(Role::Alert, buffering));
        QVERIFY(player.awaitChannel(QStringLiteral("Colours")).press());
        QTRY_VERIFY(!player.shows(Role::Alert, buffering));
        QVERIFY(player.awaitColours());
    }

    void aServerThatDiesWithinAListTakesNothingAlong()
    {
        TestServer server(clip("hls-colours"));
        const QByteArray list = "#EXTM3U\n"
                                "#EXTINF:-1,Colours\n/index.m3u8\n"
                                "#EXTINF:-1,None\n/none.m3u8\n";
        server.serve(listPath, list);
        server.stallAfter(brokenPath, list.repeated(50'000));
        const SidebarPlayer player(m_bus, { clip("long.mp4") });
        QVERIFY(player.showSidebar());
        QVERIFY(player.open(server.url(listPath)));
        QVERIFY(player.pressButtonOf(QStringLiteral("Colours"), save));
        QVERIFY(player.await(Role::Button, saved));

        QVERIFY(player.open(server.url(brokenPath)));
        const auto loaded = [&player] { return player.findAll(Role::ProgressBar).value(0).name(); };
        QTRY_VERIFY(loaded().endsWith(QStringLiteral("MiB")));
        server.stop();
        const auto error = [&player] { return player.findAll(Role::Alert).value(0).name(); };
        QTRY_VERIFY(error().startsWith(QStringLiteral("Could not open playlist: ")));
        QVERIFY(loaded().isEmpty());
        // What plays goes on, and what was saved is there.
        const double before = player.positionValue();
        QTRY_VERIFY(player.positionValue() > before);
        QVERIFY(player.showSection(localSection));
        QVERIFY(player.awaitHeading(localCount(1, 1)));

        server.start();
        QVERIFY(player.showSection(networkSection));
        QVERIFY(player.open(server.url(listPath)));
        QVERIFY(player.awaitHeading(networkCount(2, 2)));
        QVERIFY(!error().startsWith(QStringLiteral("Could not")));
        QVERIFY(player.awaitChannel(QStringLiteral("Colours")).press());
        QVERIFY(player.awaitColours());
    }

private:
    AccessibilityBus m_bus;
    std::unique_ptr<OwnSettings> m_settings;
};

QTEST_MAIN(NetworkFaultsTest)
#include "tst_network_faults.moc"
