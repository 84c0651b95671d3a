// What a key press in the search field, a choice in a filter menu and a new list cost before
// anything is drawn.
#include "Channels.h"
#include "library/ChannelFilter.h"
#include "support/MemoryUse.h"

using namespace zeph;

namespace {

const QList<PlaylistEntry> &madeOnce(const benchmark::State &state)
{
    static QHash<int, QList<PlaylistEntry>> lists;
    const auto count = static_cast<int>(state.range(0));
    if (!lists.contains(count))
        lists.insert(count, bench::channels(count));
    return lists[count];
}

// From one choice of criteria to another.
void change(benchmark::State &state, const ChannelCriteria &before, const ChannelCriteria &after)
{
    ChannelFilter filter(madeOnce(state));
    filter.setCriteria(after);
    const qsizetype found = filter.count();
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        filter.setCriteria({});
        filter.setCriteria(before);
        state.ResumeTiming();
        filter.setCriteria(after);
    }
    if (filter.count() != found)
        state.SkipWithError("another result");
    state.counters["found"] = static_cast<double>(found);
}

ChannelCriteria search(const char *text)
{
    return { QString::fromUtf8(text), {}, {} };
}

// The worst that a list can do: no two channels share a group or a country.
QList<PlaylistEntry> channelsOfTheirOwnGroups(const benchmark::State &state)
{
    QList<PlaylistEntry> list;
    for (const PlaylistEntry &entry : madeOnce(state)) {
        const auto number = static_cast<char32_t>(list.size());
        PlaylistEntry::Fields fields { entry.id(), entry.name(),
            *AddressText::fromText(QString(entry.address())), {},
            QStringLiteral("Group %1").arg(number), {} };
        fields.countryCode = QString(QChar(0x4e00 + number / 1000)) + QChar(0x4e00 + number % 1000);
        list << PlaylistEntry(fields);
    }
    return list;
}

void prepareOwnGroups(benchmark::State &state)
{
    const QList<PlaylistEntry> list = channelsOfTheirOwnGroups(state);
    for ([[maybe_unused]] auto _ : state) {
        const ChannelFilter filter(list);
        benchmark::DoNotOptimize(filter.categories());
    }
}

void searchOwnGroups(benchmark::State &state)
{
    ChannelFilter filter(channelsOfTheirOwnGroups(state));
    filter.setCriteria(search("1"));
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        filter.setCriteria({});
        state.ResumeTiming();
        filter.setCriteria(search("1"));
    }
}

void prepare(benchmark::State &state)
{
    const QList<PlaylistEntry> &list = madeOnce(state);
    for ([[maybe_unused]] auto _ : state) {
        const ChannelFilter filter(list);
        benchmark::DoNotOptimize(filter.categories());
    }
}

// The memory that a prepared and searched list takes besides its entries.
void memory(benchmark::State &state)
{
    const QList<PlaylistEntry> &list = madeOnce(state);
    qint64 bytes = 0;
    for ([[maybe_unused]] auto _ : state) {
        const qint64 before = bench::currentMemory();
        ChannelFilter filter(list);
        filter.setCriteria(search("a"));
        bytes = bench::currentMemory() - before;
    }
    state.counters["MB"] = static_cast<double>(bytes) / 1e6;
}

void forAllSizes(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(100)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
    benchmark->Iterations(50)->UseRealTime()->MeasureProcessCPUTime();
}

} // namespace

#define BENCHMARK_CHANGE(name, before, after)                                                      \
    BENCHMARK_CAPTURE(change, name, before, after)->Apply(forAllSizes)

BENCHMARK_CHANGE(firstCharacter, search(""), search("k"));
BENCHMARK_CHANGE(secondCharacter, search("k"), search("ka"));
BENCHMARK_CHANGE(thirdCharacter, search("ka"), search("kan"));
BENCHMARK_CHANGE(lastCharacter, search("12345"), search("123456"));
BENCHMARK_CHANGE(deletedCharacter, search("kan"), search("ka"));
BENCHMARK_CHANGE(otherScript, search(""), search("\u043a\u0430\u043d"));
BENCHMARK_CHANGE(matchAll, search(""), search(" "));
BENCHMARK_CHANGE(matchNone, search(""), search("zzz"));
BENCHMARK_CHANGE(pastedText, search(""), search("Kanal 123456"));
BENCHMARK_CHANGE(firstDigit, search(""), search("1"));
BENCHMARK_CHANGE(country, search(""), (ChannelCriteria { {}, QStringLiteral("TR"), {} }));
BENCHMARK_CHANGE(
    category, search(""), (ChannelCriteria { {}, {}, QStringLiteral("DE | Filme & Serien 6") }));
BENCHMARK_CHANGE(countryOfSearch, search("1"),
    (ChannelCriteria { QStringLiteral("1"), QStringLiteral("TR"), {} }));
BENCHMARK_CHANGE(noFilter, search("k"), search(""));
BENCHMARK(prepare)->Apply(forAllSizes);
BENCHMARK(searchOwnGroups)->Apply(forAllSizes);
BENCHMARK(prepareOwnGroups)->Apply(forAllSizes)->Iterations(3);
BENCHMARK(memory)->Arg(1'000'000)->Iterations(1);

BENCHMARK_MAIN();
