// What a window costs in which nothing moves: memory, processor time and wake-ups, empty or with a
// clip that is paused.
#include "Measuring.h"
#include "Players.h"
#include "Screen.h"

#include <cstdlib>
#include <thread>

namespace {

constexpr double megabyte = 1e6;

/// In bytes; nothing when there is no window.
struct Memory {
    double resident;
    double proportional;
};

std::optional<Memory> memoryOf(Screen &screen, const Player &player)
{
    screen.clear(background);
    const Program program(player.command);
    if (!screen.waitFor(player.corner.x + 300, player.corner.y + 12, player.isDrawn))
        return std::nullopt;
    // What is loaded behind the window is there soon after.
    std::this_thread::sleep_for(std::chrono::seconds(2));
    return Memory { program.memory(), program.proportionalMemory() };
}

void memory(benchmark::State &run, const Player &player)
{
    Screen screen;
    for ([[maybe_unused]] auto _ : run) {
        const std::optional<Memory> memory = memoryOf(screen, player);
        if (!memory) {
            run.SkipWithError("no window");
            return;
        }
        run.SetIterationTime(1);
        run.counters["MB"] = memory->resident / megabyte;
        run.counters["proportional_MB"] = memory->proportional / megabyte;
    }
}

/// This build next to another one.
void compareBuilds(benchmark::State &run)
{
    Screen screen;
    std::vector<double> ours;
    std::vector<double> others;
    for ([[maybe_unused]] auto _ : run) {
        const std::optional<Memory> our = memoryOf(screen, zeph());
        const std::optional<Memory> other = memoryOf(screen, otherBuild());
        if (!our || !other) {
            run.SkipWithError("no window");
            return;
        }
        run.SetIterationTime(1);
        ours.push_back(our->resident);
        others.push_back(other->resident);
    }
    run.counters["MB"] = median(ours) / megabyte;
    run.counters["other_MB"] = median(others) / megabyte;
}

bool pause(const Program &program)
{
    const std::string keys = "xdotool search --all --onlyvisible --pid "
        + std::to_string(program.id()) + " --name . windowfocus --sync key space";
    return std::system(keys.c_str()) == 0;
}

void idle(benchmark::State &run, const Player &player, bool isPaused)
{
    constexpr auto time = std::chrono::seconds(10);
    Screen screen;
    for ([[maybe_unused]] auto _ : run) {
        screen.clear(background);
        const Program program(
            isPaused ? player.commandFor(variable("ZEPH_CLIPS") + "/green.mp4") : player.command);
        if (!screen.waitFor(
                player.corner.x + 300, player.corner.y + 200, isPaused ? isGreen : isSeen)) {
            run.SkipWithError("nothing was seen on the screen");
            return;
        }
        if (isPaused && !pause(program)) {
            run.SkipWithError("it takes no keys");
            return;
        }
        std::this_thread::sleep_for(std::chrono::seconds(4));
        const double wakeUps = program.wakeUps();
        const Seconds processorTime = program.cpuTime();
        const auto start = Clock::now();
        std::this_thread::sleep_for(time);
        const double seconds = Seconds(Clock::now() - start).count();
        run.SetIterationTime(seconds);
        run.counters["wake_ups_per_s"] = (program.wakeUps() - wakeUps) / seconds;
        run.counters["cpu_s_per_s"] = (program.cpuTime() - processorTime).count() / seconds;
    }
}

} // namespace

void addEmptyWindowBenchmarks()
{
    add("memory, empty/empty Qt Quick window", 1, [](auto &run) { memory(run, emptyWindow()); });
    for (const Player &player : allPlayers())
        add("memory, empty/" + player.name, 1, [=](auto &run) { memory(run, player); });
    constexpr int timesInTurns = 5;
    add("memory next to another build/Zeph", timesInTurns, compareBuilds);

    for (const Player &player : { zeph(), mpv() }) {
        add("idle, empty/" + player.name, 1, [=](auto &run) { idle(run, player, false); });
        add("idle, paused/" + player.name, 1, [=](auto &run) { idle(run, player, true); });
    }
}
