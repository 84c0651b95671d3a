// The built program, ended from outside while it saves one link after the other.
#include "KeptLinks.h"
#include "library/SavedLinks.h"
#include "SidebarPlayer.h"

#include <QDir>

#include <csignal>

using zeph::TestServer;

namespace {

const QString listPath = QStringLiteral("/list.m3u");
const QString save = QStringLiteral("Save to Local M3U");

} // namespace

class TerminationTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyLinkIsAsBeforeOrAsAfter()
    {
        const OwnSettings settings;
        const QString file = settingsFile(settings.path());
        QVERIFY(QDir().mkpath(QFileInfo(file).path()));
        // Enough for writing them to take its time.
        QVERIFY(writeFile(file,
            zeph::settingsToText({ { zeph::LocalM3UStore::defaultsKey(),
                zeph::playlistToJson(savedLinks(QStringLiteral("old "), 3000)) } })));

        constexpr int rounds = 6;
        constexpr int channels = 12;
        for (int round = 0; round < rounds; ++round) {
            const QStringList before = storedNames(file).value_or(QStringList());
            const QByteArray name = "Round-" + QByteArray::number(round);
            TestServer server { QString() };
            server.serve(listPath, listOf(channels, name));
            SidebarPlayer player(m_bus);
            QVERIFY(player.showSidebar());
            QVERIFY(player.showSection(localSection));
            const auto count = int(before.size());
            QVERIFY(player.awaitHeading(localCount(count, count)));
            QVERIFY(player.showSection(networkSection));
            QVERIFY(player.open(server.url(listPath)));
            QVERIFY(player.awaitHeading(networkCount(channels, channels)));

            QList<AccessibleObject> buttons;
            const auto findButtons = [&] {
                buttons = player.findAll(Role::Button);
                buttons.removeIf(
                    [](const AccessibleObject &button) { return button.name() != save; });
                return buttons.size() > 1;
            };
            QTRY_VERIFY(findButtons());
            for (const AccessibleObject &button : std::as_const(buttons))
                QVERIFY(button.press());
            // The moment is another in each round: from none being saved to all but the last.
            const qsizetype savedFirst = round % buttons.size();
            const auto saved = [&] { return storedNames(file).value_or(before).size() - count; };
            QTRY_VERIFY(saved() >= savedFirst);
            ::kill(pid_t(player.id()), SIGTERM);
            QTRY_VERIFY(!player.isRunning());

            const auto after = storedNames(file);
            QVERIFY(after);
            QStringList expected = before;
            for (int i = 0; i < after->size() - count; ++i)
                expected.prepend(QString::fromLatin1(name) + QStringLiteral(" %1").arg(i));
            QCOMPARE(*after, expected);
        }
    }

private:
    AccessibilityBus m_bus;
};

QTEST_MAIN(TerminationTest)
#include "tst_termination.moc"
