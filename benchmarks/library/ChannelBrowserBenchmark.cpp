// What the window itself does when the sidebar's section changes, and when a list comes or goes.
#include "Channels.h"
#include "library/ChannelBrowser.h"
#include "library/LocalM3UStore.h"
#include "player/PlayerModel.h"

#include <QCoreApplication>
#include <QTemporaryDir>

using namespace zeph;
using namespace zeph::bench;

namespace {

struct Window {
    QTemporaryDir folder;
    UserDefaults defaults { folder.filePath(QStringLiteral("settings.conf")) };
    NoPanels panels;
    PlayerModel model { panels };
    LocalM3UStore store { defaults, model, panels };
    ChannelBrowser browser { model, store };
};

// From a hundred saved links to the list, with a search that it has not been through yet.
void switchSection(benchmark::State &state)
{
    Window window;
    window.store.replaceEntries(channels(100));
    window.browser.setNetworkPlaylist(channels(state));
    window.browser.playlistCategories();
    bool wasFirst = false;
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        window.browser.setSelectedSection(PlayerSidebarSection::LocalM3U);
        wasFirst = !wasFirst;
        window.browser.setChannelSearch(
            wasFirst ? QStringLiteral("kan") : QStringLiteral("sender"));
        state.ResumeTiming();
        window.browser.setSelectedSection(PlayerSidebarSection::Network);
        benchmark::DoNotOptimize(window.browser.channelCountText());
    }
}

// What the window cannot do anything else during, while the list is prepared for searches.
void showList(benchmark::State &state, const QString &search)
{
    Window window;
    window.browser.setChannelSearch(search);
    const QList<PlaylistEntry> list = channels(state);
    for ([[maybe_unused]] auto _ : state) {
        window.browser.setNetworkPlaylist(list);
        benchmark::DoNotOptimize(window.browser.channelCountText());
        state.PauseTiming();
        window.browser.filteredPlaylist();
        window.browser.setNetworkPlaylist({});
        state.ResumeTiming();
    }
}

// Nobody else holds it any more.
void dropList(benchmark::State &state)
{
    Window window;
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        window.browser.setNetworkPlaylist(channels(state));
        window.browser.playlistCategories();
        state.ResumeTiming();
        window.browser.setNetworkPlaylist({});
    }
}

void forAllSizes(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(100)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
    benchmark->Iterations(20)->UseRealTime()->MeasureProcessCPUTime();
}

} // namespace

BENCHMARK(switchSection)->Apply(forAllSizes);
BENCHMARK_CAPTURE(showList, withoutSearch, QString())->Apply(forAllSizes);
BENCHMARK_CAPTURE(showList, withSearch, QStringLiteral("kan"))->Apply(forAllSizes);
BENCHMARK(dropList)->Apply(forAllSizes);

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
