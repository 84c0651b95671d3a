// What the built program does with what the desktop hands over, when it starts and while it runs.
#include "SidebarPlayer.h"
#include "support/Files.h"

using zeph::TestServer;

namespace {

const QByteArray channels = "#EXTM3U\n"
                            "#EXTINF:-1,One\n"
                            "http://127.0.0.1:9/one.m3u8\n"
                            "#EXTINF:-1,Two\n"
                            "http://127.0.0.1:9/two.m3u8\n";

} // namespace

class DesktopHandoverTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_settings = std::make_unique<OwnSettings>(); }

    void aListFileShowsItsChannels_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("m3u") << "My list.m3u";
        QTest::newRow("m3u8") << "My list.m3u8";
    }
    void aListFileShowsItsChannels()
    {
        QFETCH(const QString, name);
        const QString path = m_folder.filePath(name);
        QVERIFY(writeFile(path, channels));
        const SidebarPlayer player(m_bus, { path });
        QVERIFY(player.awaitHeading(networkCount(2, 2)));
        QVERIFY(player.awaitChannel(QStringLiteral("One")));
        QTRY_COMPARE(player.title(), QStringLiteral("My list"));
        QVERIFY(player.shows(Role::Button, QStringLiteral("Open Media")));
        // They are shown, not kept.
        QVERIFY(player.showSection(localSection));
        QVERIFY(player.await(Role::Button, QStringLiteral("Choose M3U File\u2026")));
    }

    void anEmptyListSaysSo()
    {
        const QString path = m_folder.filePath(QStringLiteral("empty.m3u"));
        QVERIFY(writeFile(path, {}));
        const SidebarPlayer player(m_bus, { path });
        QVERIFY(player.await(Role::Alert,
            QStringLiteral(
                "Could not open playlist: No playable address was found in the playlist.")));
    }

    void aListFromTheNetworkIsInTheAddressField()
    {
        TestServer server((QString()));
        server.serve(QStringLiteral("/list.m3u"), channels);
        const QString address = server.url(QStringLiteral("/list.m3u")).toString();
        const SidebarPlayer player(m_bus, { address });
        QVERIFY(player.awaitHeading(networkCount(2, 2)));
        QCOMPARE(player.await(Role::TextField, addressField).text(), address);
        QCOMPARE(server.requestCount(QStringLiteral("/list.m3u")), 1);
    }

    void aListWhileAFilmPlays()
    {
        const QString path = m_folder.filePath(QStringLiteral("later.m3u"));
        QVERIFY(writeFile(path, channels));
        const SidebarPlayer player(m_bus, { clip("colours.mp4") });
        QVERIFY(player.await(Role::Button, pauseButton));
        const QDBusConnection desktop = m_bus.sessionBus().connectAs(QStringLiteral("desktop"));
        const QDBusMessage reply =
            PrivateBus::call(desktop, QStringLiteral("org.mpris.MediaPlayer2.zeph_player"),
                QStringLiteral("/org/mpris/MediaPlayer2"),
                QStringLiteral("org.mpris.MediaPlayer2.Player"), QStringLiteral("OpenUri"),
                { QUrl::fromLocalFile(path).toString() });
        QCOMPARE(reply.type(), QDBusMessage::ReplyMessage);
        QVERIFY(player.awaitHeading(networkCount(2, 2)));
        QVERIFY(player.shows(Role::Button, pauseButton));
    }

private:
    AccessibilityBus m_bus;
    QTemporaryDir m_folder;
    std::unique_ptr<OwnSettings> m_settings;
};

QTEST_MAIN(DesktopHandoverTest)
#include "tst_desktop_handover.moc"
