// Going from one kind of player to another, again and again.
#include "platform/PlayerSurfaceRegistry.h"
#include "sources/WebPlayerRegistry.h"
#include "support/EngineTest.h"
#include "support/Files.h"
#include "WebTest.h"

#include <QDir>
#include <QPointer>

using namespace zeph;

namespace {

/// The processes that run pages, of all that this one has begun; dead ones do not count.
int rendererCount()
{
    int count = 0;
    for (const QString &pid : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
        const QString folder = QStringLiteral("/proc/") + pid;
        count += contentOf(folder + QStringLiteral("/cmdline")).contains("--type=renderer")
            && contentOf(folder + QStringLiteral("/environ")).contains(qgetenv("HOME"));
    }
    return count;
}

int descendantCount(const QQuickItem &item)
{
    int count = 0;
    for (const QQuickItem *child : item.childItems())
        count += 1 + descendantCount(*child);
    return count;
}

} // namespace

class WebPlayerSwitchesTest : public WebTest {
    Q_OBJECT

public:
    using WebTest::WebTest;

private Q_SLOTS:
    void leaveNothingBehind()
    {
        PlayerWindow player;
        QQuickItem *nativeView = PlayerSurfaceRegistry::shared().view();
        QVERIFY(nativeView);
        const int itemsBefore = descendantCount(*player.window().contentItem());
        QPointer<QObject> profile;

        for (int i = 0; i < 100; ++i) {
            player.model().play(longClip(), {}, false);
            QTRY_COMPARE(PlayerSurfaceRegistry::shared().view(), nativeView);
            // A page may be left at any time: before there is one, while it loads, and while it
            // plays.
            const bool waits = i % 10 == 0;
            player.open(video);
            if (waits)
                QTRY_VERIFY(player.plays());
            if (i % 3 == 0)
                QTRY_VERIFY(player.webView());
            player.open(okVideo);
            if (waits)
                QTRY_VERIFY(player.plays());
            if (i % 3 == 1)
                QTRY_VERIFY(player.webView());
            if (player.webView()) {
                auto *used = player.webView()->property("profile").value<QObject *>();
                QVERIFY(!profile || profile == used);
                profile = used;
            }
        }
        player.model().stop();
        QTRY_VERIFY(!player.playerView());
        QTRY_VERIFY(descendantCount(*player.window().contentItem()) == itemsBefore);
        QVERIFY(profile);
        QCOMPARE(PlayerSurfaceRegistry::shared().view(), nativeView);
        QTRY_VERIFY(!YouTubePlayerRegistry::shared().webView());
        QTRY_VERIFY(!OKVideoPlayerRegistry::shared().webView());
        QTRY_VERIFY(rendererCount() == 0);
    }
};

ZEPH_WEB_TEST_MAIN(WebPlayerSwitchesTest)
#include "tst_web_player_switches.moc"
