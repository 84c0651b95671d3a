// What the user waits for and what the machine works, each next to mpv or an empty Qt Quick window
// in the same run. The environment says where things are; see run-player-benchmarks.
#include "MpvSocket.h"
#include "Program.h"
#include "Screen.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <optional>
#include <thread>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;
using Command = std::vector<std::string>;
using Seconds = std::chrono::duration<double>;

std::string variable(const char *name)
{
    const char *value = std::getenv(name);
    return value ? value : "";
}

const std::string player = variable("ZEPH_PLAYER");
const std::string otherPlayer = variable("ZEPH_OTHER_PLAYER");
const std::string switchClips = variable("ZEPH_SWITCH_CLIPS");
const std::string emptyWindow = variable("ZEPH_EMPTY_WINDOW");
const std::string clips = variable("ZEPH_CLIPS");
const std::string server = variable("ZEPH_SERVER");
const Command mpv { "mpv", "--no-config", "--keep-open", "--geometry=+0+0" };

constexpr unsigned background = 0x404040;
constexpr int menuBarHeight = 26;

/// Looks for a colour at a point of a program's window. The player's is in the middle of the
/// screen, all others are in its corner.
bool waitFor(Screen &screen, const std::string &program, int x, int y,
    const std::function<bool(unsigned)> &isWanted)
{
    const bool isPlayer = program == player || program == otherPlayer;
    return screen.waitFor(x + (isPlayer ? 610 : 0), y + (isPlayer ? 385 : 0), isWanted);
}

bool isLight(unsigned colour)
{
    return (colour & 0xff) > 0xc0 && (colour >> 8 & 0xff) > 0xc0 && (colour >> 16) > 0xc0;
}

bool isGreen(unsigned colour)
{
    return (colour & 0xff) < 0x50 && (colour >> 8 & 0xff) > 0xa0 && (colour >> 16) < 0x50;
}

bool isRed(unsigned colour)
{
    return (colour & 0xff) < 0x50 && (colour >> 8 & 0xff) < 0x50 && (colour >> 16) > 0xa0;
}

Command with(Command command, const Command &more)
{
    command.insert(command.end(), more.begin(), more.end());
    return command;
}

/// The results of the references, by the name of what was measured.
std::map<std::string, double> references;

/// States `result` as a ratio to the reference, or keeps it as that.
void state(benchmark::State &run, const std::string &what, bool isReference, double result)
{
    if (isReference)
        references[what] = result;
    else if (references.contains(what))
        run.counters["ratio"] = result / references[what];
}

/// Repeats a measurement in seconds and reports its median.
template <typename Measure>
void repeat(benchmark::State &run, const std::string &what, bool isReference, Measure measure)
{
    std::vector<double> results;
    for ([[maybe_unused]] auto _ : run) {
        const std::optional<double> seconds = measure();
        if (!seconds) {
            run.SkipWithError("nothing was seen on the screen");
            return;
        }
        run.SetIterationTime(*seconds);
        results.push_back(*seconds);
    }
    std::sort(results.begin(), results.end());
    const double median = results[results.size() / 2];
    run.counters["median_ms"] = median * 1000;
    state(run, what, isReference, median);
}

std::optional<double> startUpSeconds(
    Screen &screen, const Command &command, const Command &environment)
{
    screen.clear(background);
    const auto start = Clock::now();
    const Program program(command, environment);
    if (!waitFor(screen, command.front(), 300, 12, isLight))
        return std::nullopt;
    return Seconds(Clock::now() - start).count();
}

void startUp(
    benchmark::State &run, const Command &command, const Command &environment, bool isReference)
{
    Screen screen;
    repeat(
        run, "start-up", isReference, [&] { return startUpSeconds(screen, command, environment); });
}

double memoryOfEmptyWindow(Screen &screen, const std::string &program)
{
    screen.clear(background);
    const Program running({ program });
    waitFor(screen, program, 300, 12, isLight);
    std::this_thread::sleep_for(std::chrono::seconds(1));
    return running.memory();
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// This build next to the other one, in turns, so that whatever slows the machine slows both.
template <typename Measure> void compareBuilds(benchmark::State &run, Measure measure)
{
    Screen screen;
    std::vector<double> ours;
    std::vector<double> others;
    for ([[maybe_unused]] auto _ : run) {
        ours.push_back(measure(screen, player));
        others.push_back(measure(screen, otherPlayer));
        run.SetIterationTime(ours.back());
    }
    run.counters["this"] = median(ours);
    run.counters["other"] = median(others);
    run.counters["ratio"] = median(ours) / median(others);
}

void emptyWindowMemory(benchmark::State &run, const Command &command, bool isReference)
{
    Screen screen;
    for ([[maybe_unused]] auto _ : run) {
        screen.clear(background);
        const Program program(command);
        const auto isThere = [](unsigned colour) { return colour != background; };
        if (!waitFor(screen, command.front(), 300, 12, isThere)) {
            run.SkipWithError("no window");
            return;
        }
        // What is loaded behind the window is there soon after.
        std::this_thread::sleep_for(std::chrono::seconds(1));
        run.SetIterationTime(1);
        run.counters["MiB"] = program.memory() / (1 << 20);
        run.counters["proportional_MiB"] = program.proportionalMemory() / (1 << 20);
        state(run, "memory", isReference, program.memory());
    }
}

/// What a window costs in which nothing moves: empty, or with a clip that is paused.
void idle(benchmark::State &run, const Command &command, bool isPaused)
{
    constexpr auto time = std::chrono::seconds(10);
    Screen screen;
    for ([[maybe_unused]] auto _ : run) {
        screen.clear(background);
        const Program program(isPaused ? with(command, { clips + "/green.mp4" }) : command);
        const auto isThere = [=](unsigned colour) {
            return isPaused ? isGreen(colour) : colour != background;
        };
        if (!waitFor(screen, command.front(), 300, 200, isThere)) {
            run.SkipWithError("nothing was seen on the screen");
            return;
        }
        if (isPaused) {
            const std::string keys = "xdotool search --all --onlyvisible --pid "
                + std::to_string(program.id()) + " '.*' windowfocus --sync key space";
            if (std::system(keys.c_str()) != 0)
                run.SkipWithError("it takes no keys");
        }
        std::this_thread::sleep_for(std::chrono::seconds(4));
        const double wakeUps = program.wakeUps();
        const Seconds cpu = program.cpuTime();
        const auto start = Clock::now();
        std::this_thread::sleep_for(time);
        const double seconds = Seconds(Clock::now() - start).count();
        run.SetIterationTime(seconds);
        run.counters["wake_ups_per_s"] = (program.wakeUps() - wakeUps) / seconds;
        run.counters["cpu_s_per_s"] = (program.cpuTime() - cpu).count() / seconds;
        run.counters["MiB"] = program.memory() / (1 << 20);
    }
}

void startWithFile(benchmark::State &run, const Command &command, bool isReference)
{
    Screen screen;
    repeat(run, "start with file", isReference, [&]() -> std::optional<double> {
        screen.clear(background);
        const auto start = Clock::now();
        const Program program(with(command, { clips + "/green.mp4" }));
        if (!waitFor(screen, command.front(), 300, 200, isGreen))
            return std::nullopt;
        return Seconds(Clock::now() - start).count();
    });
}

/// From telling a running player what to play to seeing it: green and red clips in turn.
template <typename Load>
void switchBetween(benchmark::State &run, const std::string &what, bool isReference, Load load)
{
    const std::string folder = what == "switch to file" ? clips + "/" : server;
    const std::string ending = what == "switch to file" ? ".mp4" : "/list.m3u8";
    Screen screen;
    load(folder + "red" + ending);
    if (!screen.waitFor(300, 180, isRed)) {
        run.SkipWithError("nothing was seen on the screen");
        return;
    }
    bool green = true;
    repeat(run, what, isReference, [&]() -> std::optional<double> {
        const auto start = Clock::now();
        load(folder + (green ? "green" : "red") + ending);
        if (!screen.waitFor(300, 180, green ? isGreen : isRed))
            return std::nullopt;
        green = !green;
        return Seconds(Clock::now() - start).count();
    });
}

void switchInMpv(benchmark::State &run, const std::string &what)
{
    const std::string path = "/tmp/zeph-bench-" + std::to_string(::getpid());
    Screen().clear(background);
    const Program program(with(mpv,
        { "--idle", "--force-window", "--geometry=640x360+0+0", "--input-ipc-server=" + path }));
    const MpvSocket socket(path);
    switchBetween(run, what, true, [&](const std::string &address) { socket.load(address); });
}

void switchInPlayer(benchmark::State &run, const std::string &what)
{
    Screen().clear(background);
    const Program program({ switchClips });
    switchBetween(run, what, false, [&](const std::string &address) {
        program.writeLine(address.starts_with('/') ? "file://" + address : address);
    });
}

/// Seconds of processor time for a second of playing, in a window of the clip's own size.
void playing(benchmark::State &run, const std::string &name, int width, int height, bool inMpv,
    const Command &options)
{
    constexpr auto time = std::chrono::seconds(6);
    Screen screen;
    for ([[maybe_unused]] auto _ : run) {
        screen.clear(background);
        const std::string clip = clips + "/" + name;
        const Program program(with(inMpv ? with(mpv, options) : Command { player }, { clip }));
        const auto moved = [](unsigned colour) { return colour != background; };
        if (!waitFor(screen, inMpv ? mpv.front() : player, 100, 100, moved)) {
            run.SkipWithError("no window");
            return;
        }
        if (!inMpv)
            screen.resizeWindow(width, height + menuBarHeight);
        std::this_thread::sleep_for(std::chrono::seconds(2));
        const Seconds before = program.cpuTime();
        const auto start = Clock::now();
        std::this_thread::sleep_for(time);
        const double perSecond =
            (program.cpuTime() - before).count() / Seconds(Clock::now() - start).count();
        run.SetIterationTime(perSecond);
        run.counters["cpu_s_per_s"] = perSecond;
        state(run, name, inMpv && options.empty(), perSecond);
    }
}

void add(
    const std::string &name, int iterations, const std::function<void(benchmark::State &)> &run)
{
    benchmark::RegisterBenchmark(name.c_str(), run)
        ->Iterations(iterations)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

void addAll()
{
    const Command preload { "LD_PRELOAD=libmpv.so.2" };
    add("start-up/empty Qt Quick window", 15,
        [](auto &run) { startUp(run, { emptyWindow }, {}, true); });
    add("start-up/player", 15, [](auto &run) { startUp(run, { player }, {}, false); });
    add("start-up/player if it linked libmpv", 15,
        [preload](auto &run) { startUp(run, { player }, preload, false); });

    if (!otherPlayer.empty()) {
        add("start-up/player next to the other build", 40, [](auto &run) {
            compareBuilds(run, [](Screen &screen, const std::string &program) {
                return startUpSeconds(screen, { program }, {}).value_or(20);
            });
        });
        add("memory, empty/player next to the other build", 10,
            [](auto &run) { compareBuilds(run, memoryOfEmptyWindow); });
    }

    const Command idleMpv = with(mpv, { "--idle", "--force-window" });
    add("memory, empty/mpv", 1, [=](auto &run) { emptyWindowMemory(run, idleMpv, true); });
    add("memory, empty/player", 1, [](auto &run) { emptyWindowMemory(run, { player }, false); });

    add("memory, empty/empty Qt Quick window", 1,
        [](auto &run) { emptyWindowMemory(run, { emptyWindow }, false); });

    for (const bool isPaused : { false, true }) {
        const std::string name = isPaused ? "idle, paused" : "idle, empty";
        add(name + "/mpv", 1, [=](auto &run) { idle(run, isPaused ? mpv : idleMpv, isPaused); });
        add(name + "/player", 1, [=](auto &run) { idle(run, { player }, isPaused); });
    }

    add("start with a file to its first picture/mpv", 10,
        [](auto &run) { startWithFile(run, mpv, true); });
    add("start with a file to its first picture/player", 10,
        [](auto &run) { startWithFile(run, { player }, false); });

    for (const std::string what : { "switch to file", "switch to HLS" }) {
        add(what + " to its first picture/mpv", 20, [what](auto &run) { switchInMpv(run, what); });
        add(what + " to its first picture/player", 20,
            [what](auto &run) { switchInPlayer(run, what); });
    }

    struct Size {
        const char *clip;
        int width;
        int height;
    };
    for (const Size size :
        { Size { "720p30.mp4", 1280, 720 }, Size { "1080p30.mp4", 1920, 1080 } }) {
        const std::string name = "playing " + std::string(size.clip);
        const auto measure = [size](bool inMpv, const Command &options) {
            return [=](benchmark::State &run) {
                playing(run, size.clip, size.width, size.height, inMpv, options);
            };
        };
        add(name + "/mpv", 1, measure(true, {}));
        add(name + "/mpv --vo=gpu", 1, measure(true, { "--vo=gpu", "--gpu-sw" }));
        add(name + "/mpv --vo=x11", 1, measure(true, { "--vo=x11" }));
        add(name + "/player", 1, measure(false, {}));
    }
}

} // namespace

int main(int argc, char *argv[])
{
    benchmark::Initialize(&argc, argv);
    addAll();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
