// How long an address takes from being opened to its page taking commands, the first time, which
// starts the browser, and later, with stand-ins of the services. See run-web-page-benchmark.
#include "sources/web/PlayerWindow.h"
#include "sources/web/VideoServices.h"
#include "sources/web/WebAddresses.h"
#include "sources/WebPlayerRegistry.h"

#include <benchmark/benchmark.h>

#include <QElapsedTimer>

#include <algorithm>

using namespace zeph;

namespace {

/// In milliseconds.
double timeToPage(PlayerWindow &player, WebPlayerRegistry &registry, const QString &address)
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
    const double result = double(time.nsecsElapsed()) / 1e6;
    player.model().stop();
    while (player.webView())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return result;
}

void page(benchmark::State &run, WebPlayerRegistry &registry, const QString &address)
{
    PlayerWindow player;
    std::vector<double> times;
    for ([[maybe_unused]] auto _ : run) {
        times.push_back(timeToPage(player, registry, address));
        run.SetIterationTime(times.back() / 1e3);
    }
    run.counters["first_ms"] = times.front();
    std::sort(times.begin() + 1, times.end());
    run.counters["later_ms"] = times[1 + (times.size() - 1) / 2];
}

void add(const char *service, WebPlayerRegistry &registry, const QString &address)
{
    constexpr int firstAndLater = 16;
    benchmark::RegisterBenchmark(
        service, [&registry, address](benchmark::State &run) { page(run, registry, address); })
        ->Iterations(firstAndLater)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char *argv[])
{
    benchmark::Initialize(&argc, argv);
    VideoServices services;
    return PlayerWindow::run(argc, argv, [] {
        add("YouTube", YouTubePlayerRegistry::shared(), video);
        add("OK", OKVideoPlayerRegistry::shared(), okVideo);
        benchmark::RunSpecifiedBenchmarks();
        return 0;
    });
}
