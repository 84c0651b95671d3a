// Seconds of processor time for a second of playing, in a window that shows the clip in its own
// size.
#include "Measuring.h"
#include "Players.h"
#include "Screen.h"

#include <thread>

namespace {

struct Clip {
    std::string name;
    int width;
    int height;
};

void playing(benchmark::State &run, const Player &player, const Clip &clip)
{
    constexpr auto time = std::chrono::seconds(6);
    Screen screen;
    for ([[maybe_unused]] auto _ : run) {
        screen.clear(background);
        const Program program(player.commandFor(variable("ZEPH_CLIPS") + '/' + clip.name));
        if (!screen.waitFor(player.corner.x + 100, player.corner.y + 100, isSeen)) {
            run.SkipWithError("no window");
            return;
        }
        // Time for the window to take a size by itself, and then for the one that it is given.
        std::this_thread::sleep_for(std::chrono::seconds(2));
        screen.resizeWindow(clip.width + player.chrome.x, clip.height + player.chrome.y);
        std::this_thread::sleep_for(std::chrono::seconds(2));
        const Seconds before = program.cpuTime();
        const auto start = Clock::now();
        std::this_thread::sleep_for(time);
        const Seconds used = program.cpuTime() - before;
        run.SetIterationTime(used / (Clock::now() - start));
        run.counters["cpu_s_per_s"] = used / Seconds(Clock::now() - start);
    }
}

Player mpvWith(const std::string &name, const Command &options)
{
    Player player = mpv();
    player.name = name;
    player.command.insert(player.command.end(), options.begin(), options.end());
    return player;
}

} // namespace

void addPlayingBenchmarks()
{
    std::vector<Player> players = allPlayers();
    players.push_back(mpvWith("mpv --vo=gpu", { "--vo=gpu", "--gpu-sw" }));
    players.push_back(mpvWith("mpv --vo=x11", { "--vo=x11" }));
    for (const Clip &clip :
        { Clip { "720p30.mp4", 1280, 720 }, Clip { "1080p30.mp4", 1920, 1080 } }) {
        for (const Player &player : players)
            add("playing " + clip.name + '/' + player.name, 1,
                [=](auto &run) { playing(run, player, clip); });
    }
}
