#include "Measuring.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr unsigned dark = 0x60;
constexpr unsigned bright = 0xa0;

bool isPure(unsigned colour, bool red, bool green, bool blue)
{
    const auto has = [](unsigned part, bool wanted) {
        return wanted ? (part & 0xff) > bright : (part & 0xff) < dark;
    };
    return has(colour >> 16, red) && has(colour >> 8, green) && has(colour, blue);
}

} // namespace

std::string variable(const char *name)
{
    const char *value = std::getenv(name);
    return value ? value : "";
}

void add(
    const std::string &name, int iterations, const std::function<void(benchmark::State &)> &run)
{
    benchmark::RegisterBenchmark(name.c_str(), run)
        ->Iterations(iterations)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

void repeat(benchmark::State &run, const std::function<std::optional<Seconds>()> &measure)
{
    std::vector<double> results;
    for ([[maybe_unused]] auto _ : run) {
        const std::optional<Seconds> time = measure();
        if (!time) {
            run.SkipWithError("nothing was seen on the screen");
            return;
        }
        run.SetIterationTime(time->count());
        results.push_back(time->count());
    }
    run.counters["median_ms"] = median(results) * 1000;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

bool isSeen(unsigned colour)
{
    return colour != background;
}

bool isLight(unsigned colour)
{
    constexpr unsigned light = 0xc0;
    return (colour & 0xff) > light && (colour >> 8 & 0xff) > light && (colour >> 16) > light;
}

bool isGreen(unsigned colour)
{
    return isPure(colour, false, true, false);
}

bool isRed(unsigned colour)
{
    return isPure(colour, true, false, false);
}

bool isBlue(unsigned colour)
{
    return isPure(colour, false, false, true);
}

bool isMagenta(unsigned colour)
{
    return isPure(colour, true, false, true);
}
