// How long lists take to be read, and how much memory they then take.
#include "sources/PlaylistParser.h"
#include "support/ChannelList.h"
#include "support/MemoryUse.h"

#include <benchmark/benchmark.h>

#include <QUrl>

#include <malloc.h>

using namespace zeph;

namespace {

const QUrl base(QStringLiteral("http://line.example.com:8080/get.php?type=m3u_plus"));

// From the bytes as they arrive to the entries. "memory" is the growth at its peak with the bytes
// in it, as a multiple of their size; "kept" is what stays of it in the end, without them.
void parse(benchmark::State &state)
{
    const auto count = static_cast<int>(state.range(0));
    malloc_trim(0);
    bench::resetPeakMemory();
    const qint64 before = bench::currentMemory();
    const QByteArray bytes = bench::channelList(count);
    QList<PlaylistEntry> entries;
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        entries.clear();
        state.ResumeTiming();
        entries = PlaylistParser::parse(PlaylistText::fromBytes(bytes), base);
    }
    if (entries.size() != count)
        state.SkipWithError("entries are missing");

    const auto size = static_cast<double>(bytes.size());
    state.SetBytesProcessed(state.iterations() * bytes.size());
    state.SetItemsProcessed(state.iterations() * count);
    state.counters["size"] = size;
    state.counters["memory"] = static_cast<double>(bench::peakMemory() - before) / size;
    state.counters["kept"] = static_cast<double>(bench::currentMemory() - before) / size - 1;
}

// What the window waits for when a list is replaced.
void discard(benchmark::State &state)
{
    const auto text = PlaylistText::fromBytes(bench::channelList(static_cast<int>(state.range(0))));
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        auto entries = PlaylistParser::parse(text, base);
        state.ResumeTiming();
        entries.clear();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

} // namespace

BENCHMARK(parse)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(discard)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
