// What the window waits for: the saved links at its start, and with every change of them.
#include "Channels.h"
#include "library/LocalM3UStore.h"
#include "player/PlayerModel.h"

#include <QCoreApplication>
#include <QTemporaryDir>

using namespace zeph;
using namespace zeph::bench;

namespace {

// A store over a settings file of its own, in the folder for temporary files.
struct Library {
    explicit Library(const QList<PlaylistEntry> &entries) { store.replaceEntries(entries); }

    QTemporaryDir folder;
    UserDefaults defaults { folder.filePath(QStringLiteral("settings.conf")) };
    NoPanels panels;
    PlayerModel model { panels };
    LocalM3UStore store { defaults, model, panels };
};

// From the file, which this process has not read before.
void load(benchmark::State &state)
{
    Library library(channels(state));
    const QString file = library.folder.filePath(QStringLiteral("settings.conf"));
    int copies = 0;
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        const QString copy = library.folder.filePath(QStringLiteral("%1.conf").arg(copies++));
        QFile::copy(file, copy);
        UserDefaults defaults(copy);
        state.ResumeTiming();
        const LocalM3UStore store(defaults, library.model, library.panels);
        if (store.entries().size() != state.range(0))
            state.SkipWithError("entries are missing");
        state.PauseTiming();
        QFile::remove(copy);
        state.ResumeTiming();
    }
}

// The last of those that are saved, which takes longest to be found among them.
void saveAtFront(benchmark::State &state)
{
    Library library(channels(state));
    for ([[maybe_unused]] auto _ : state)
        library.store.saveToLocalM3U(library.store.entries().constLast());
    if (!library.store.errorMessage().isEmpty())
        state.SkipWithError("not stored");
}

void persist(benchmark::State &state)
{
    Library library(channels(state));
    for ([[maybe_unused]] auto _ : state)
        library.store.persist();
    if (!library.store.errorMessage().isEmpty())
        state.SkipWithError("not stored");
}

// A million listed channels, of which the saved ones are the first.
void containsAMillion(benchmark::State &state)
{
    constexpr int listed = 1'000'000;
    const Library library(channels(state));
    const QList<PlaylistEntry> list = channels(listed);
    qsizetype found = 0;
    for ([[maybe_unused]] auto _ : state) {
        found = 0;
        for (const PlaylistEntry &entry : list)
            found += library.store.contains(entry);
    }
    if (found < state.range(0))
        state.SkipWithError("not all of them were found");
    state.SetItemsProcessed(state.iterations() * listed);
}

void forAllSizes(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(100)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
}

} // namespace

BENCHMARK(load)->Apply(forAllSizes)->UseRealTime();
BENCHMARK(saveAtFront)->Apply(forAllSizes)->UseRealTime();
BENCHMARK(persist)->Apply(forAllSizes)->UseRealTime();
BENCHMARK(containsAMillion)->Apply(forAllSizes);

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
