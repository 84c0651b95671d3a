// How long a player takes from its start to its window, and to the picture of a file.
#include "Measuring.h"
#include "Players.h"
#include "Screen.h"

namespace {

std::optional<Seconds> timeToWindow(
    Screen &screen, const Player &player, const Command &environment = {})
{
    screen.clear(background);
    const auto start = Clock::now();
    const Program program(player.command, environment);
    if (!screen.waitFor(player.corner.x + 300, player.corner.y + 12, player.isDrawn))
        return std::nullopt;
    return Clock::now() - start;
}

std::optional<Seconds> timeToPicture(Screen &screen, const Player &player)
{
    screen.clear(background);
    const auto start = Clock::now();
    const Program program(player.commandFor(variable("ZEPH_CLIPS") + "/green.mp4"));
    if (!screen.waitFor(player.corner.x + 300, player.corner.y + 200, isGreen))
        return std::nullopt;
    return Clock::now() - start;
}

/// This build next to another one, in turns, so that whatever slows the machine slows both.
void compareBuilds(benchmark::State &run)
{
    Screen screen;
    std::vector<double> others;
    repeat(run, [&]() -> std::optional<Seconds> {
        const std::optional<Seconds> time = timeToWindow(screen, otherBuild());
        if (!time)
            return std::nullopt;
        others.push_back(time->count());
        return timeToWindow(screen, zeph());
    });
    if (!others.empty())
        run.counters["other_median_ms"] = median(others) * 1000;
}

void addTimeToWindow(const std::string &name, const Player &player, const Command &environment = {})
{
    constexpr int times = 15;
    add("start/" + name, times, [=](auto &run) {
        Screen screen;
        repeat(run, [&] { return timeToWindow(screen, player, environment); });
    });
}

} // namespace

void addStartBenchmarks()
{
    constexpr int timesWithFile = 10;
    constexpr int timesInTurns = 40;
    addTimeToWindow("empty Qt Quick window", emptyWindow());
    addTimeToWindow("Zeph", zeph());
    addTimeToWindow("Zeph if it linked libmpv", zeph(), { "LD_PRELOAD=libmpv.so.2" });
    for (const Player &player : otherPlayers())
        addTimeToWindow(player.name, player);
    add("start next to another build/Zeph", timesInTurns, compareBuilds);

    for (const Player &player : allPlayers()) {
        add("start with a file/" + player.name, timesWithFile, [=](auto &run) {
            Screen screen;
            repeat(run, [&] { return timeToPicture(screen, player); });
        });
    }
}
