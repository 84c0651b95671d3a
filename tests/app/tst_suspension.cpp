// The built program, stopped for a while as a computer is that sleeps.
#include "SidebarPlayer.h"
#include "support/LiveStream.h"

#include <QElapsedTimer>
#include <QFile>

#include <csignal>

using zeph::LiveStream;
using zeph::TestServer;

namespace {

// Longer than anything that the program waits for while it plays, but for the network's own ten
// seconds: a live channel's first attempts to return, toasts, controls that go away.
constexpr int sleepingTime = 5000;

void signal(const PlayerProgram &player, int number)
{
    ::kill(pid_t(player.id()), number);
}

/// Stops it for the sleeping time.
void suspend(const PlayerProgram &player)
{
    signal(player, SIGSTOP);
    QTest::qWait(sleepingTime);
    signal(player, SIGCONT);
}

} // namespace

class SuspensionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_settings = std::make_unique<OwnSettings>(); }

    void aFilePlaysOnWhereItWas()
    {
        const SidebarPlayer player(m_bus, { clip("numbered-2.mp4") });
        QVERIFY(player.await(Role::Button, pauseButton));
        QTRY_VERIFY(player.positionValue() > 1);
        const double before = player.positionValue();
        QElapsedTimer awake;
        awake.start();
        suspend(player);
        QTRY_VERIFY(player.positionValue() > before + 1);
        // Nothing was skipped to catch up.
        const double playable = double(awake.elapsed() - sleepingTime) / 1000 + 1;
        QVERIFY2(player.positionValue() < before + playable,
            qPrintable(QStringLiteral("%1 after %2, of %3")
                           .arg(player.positionValue())
                           .arg(before)
                           .arg(playable)));
        QVERIFY(player.showSidebar());
        QVERIFY(player.pressButton(pauseButton));
        QVERIFY(player.await(Role::Button, playButton));
    }

    void aToastGoesAway()
    {
        const SidebarPlayer player(m_bus);
        QVERIFY(player.pressButton(playButton));
        const QString toast =
            QStringLiteral("No media or URL is available. Open a file or enter a stream URL.");
        QVERIFY(player.await(Role::Alert, toast));
        suspend(player);
        QTRY_VERIFY(!player.shows(Role::Alert, toast));
    }

    void aChannelPlaysOn()
    {
        const QTemporaryDir folder;
        const LiveStream stream(LiveStream::hls(folder.path()));
        TestServer server(folder.path());
        server.serve(QStringLiteral("/list.m3u"), "#EXTM3U\n#EXTINF:-1,Live\n/live.m3u8\n");
        QTRY_VERIFY(QFile::exists(folder.filePath(QStringLiteral("live2.ts"))));
        const SidebarPlayer player(m_bus);
        QVERIFY(player.showSidebar());
        QVERIFY(player.open(server.url(QStringLiteral("/list.m3u"))));
        QVERIFY(player.awaitChannel(QStringLiteral("Live")).press());
        QVERIFY(player.await(Role::Button, pauseButton));
        QVERIFY(player.pictureMoves());
        // By then the channel has gone on to segments that the player has not heard of.
        suspend(player);
        QVERIFY(player.pictureMoves());
        QVERIFY(player.shows(Role::Button, pauseButton));
        QCOMPARE(player.title(), QStringLiteral("Live"));
        QVERIFY(player.showSection(localSection));
        QVERIFY(player.await(Role::Button, QStringLiteral("Add M3U8 Link")));
    }

private:
    AccessibilityBus m_bus;
    std::unique_ptr<OwnSettings> m_settings;
};

QTEST_MAIN(SuspensionTest)
#include "tst_suspension.moc"
