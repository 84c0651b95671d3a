// How long an address takes from being opened to its page taking commands, the first time, which
// starts the browser, and later: time-to-page. ZEPH_CLIPS names the folder of the tests' clips.
#include "sources/web/PlayerWindow.h"
#include "sources/web/VideoServices.h"
#include "sources/web/WebAddresses.h"
#include "sources/WebPlayerRegistry.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>

using namespace zeph;

namespace {

/// In milliseconds.
qint64 timeToPage(PlayerWindow &player, WebPlayerRegistry &registry, const QString &address)
{
    QElapsedTimer time;
    time.start();
    player.open(address);
    // It waits for the page, as any command.
    registry.evaluate(QStringLiteral("document.title = 'ready';"));
    const auto isReady = [&player] {
        const QQuickItem *page = player.webView();
        return page && page->property("title") == QStringLiteral("ready");
    };
    while (!isReady())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    const qint64 result = time.elapsed();
    player.model().stop();
    while (player.webView())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return result;
}

void report(const char *service, WebPlayerRegistry &registry, const QString &address)
{
    PlayerWindow player;
    const auto first = timeToPage(player, registry, address);
    QList<qint64> later;
    for (int i = 0; i < 15; ++i)
        later += timeToPage(player, registry, address);
    std::sort(later.begin(), later.end());
    const qint64 median = later.at(later.size() / 2);
    std::printf("%-8s first %5lld ms, later %5lld ms (median), ratio %.2f\n", service,
        static_cast<long long>(first), static_cast<long long>(median),
        double(first) / double(median));
}

} // namespace

int main(int argc, char *argv[])
{
    VideoServices services;
    return PlayerWindow::run(argc, argv, [] {
        report("YouTube", YouTubePlayerRegistry::shared(), video);
        report("OK", OKVideoPlayerRegistry::shared(), okVideo);
        return 0;
    });
}
