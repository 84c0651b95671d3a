// How long a running player takes from being told what to play to the picture of it: a file, or a
// channel; and our own program from the click on a channel in its sidebar.
#include "ChannelSidebar.h"
#include "Measuring.h"
#include "Mpris.h"
#include "MpvSocket.h"
#include "Screen.h"

#include <thread>
#include <unistd.h>

namespace {

constexpr int times = 20;
/// What was switched to plays for as long before the next.
constexpr auto pause = std::chrono::milliseconds(200);

struct Source {
    std::string name;
    std::string green;
    std::string red;
};

std::vector<Source> sources()
{
    const std::string files = "file://" + variable("ZEPH_CLIPS");
    const std::string server = variable("ZEPH_SERVER");
    return {
        { "file", files + "/green.mp4", files + "/red.mp4" },
        { "HLS", server + "green/list.m3u8", server + "red/list.m3u8" },
    };
}

using Load = std::function<void(const std::string &address)>;

/// Green and red in turn.
void switchBetween(benchmark::State &run, const Source &source, Point corner, const Load &load)
{
    Screen screen;
    const Point point { corner.x + 300, corner.y + 180 };
    load(source.red);
    if (!screen.waitFor(point.x, point.y, isRed)) {
        run.SkipWithError("nothing was seen on the screen");
        return;
    }
    bool isGreenNext = true;
    repeat(run, [&]() -> std::optional<Seconds> {
        std::this_thread::sleep_for(pause);
        const auto start = Clock::now();
        load(isGreenNext ? source.green : source.red);
        if (!screen.waitFor(point.x, point.y, isGreenNext ? isGreen : isRed))
            return std::nullopt;
        isGreenNext = !isGreenNext;
        return Clock::now() - start;
    });
}

void switchInMpv(benchmark::State &run, const Source &source)
{
    const std::string path = "/tmp/zeph-bench-" + std::to_string(::getpid());
    Player player = mpv();
    player.command.insert(
        player.command.end(), { "--geometry=640x360+0+0", "--input-ipc-server=" + path });
    Screen().clear(background);
    const Program program(player.command);
    const MpvSocket socket(path);
    switchBetween(
        run, source, player.corner, [&](const std::string &address) { socket.load(address); });
}

/// A program that is told over its standard input.
void switchByInput(benchmark::State &run, const Source &source, const std::string &path)
{
    Screen().clear(background);
    const Program program({ path });
    switchBetween(run, source, {}, [&](const std::string &address) { program.writeLine(address); });
}

void switchOverMpris(benchmark::State &run, const Source &source, const Player &player)
{
    Screen().clear(background);
    const Program program(player.commandFor(source.green));
    if (!Screen().waitFor(player.corner.x + 300, player.corner.y + 180, isGreen)) {
        run.SkipWithError("nothing was seen on the screen");
        return;
    }
    const Mpris mpris(program.id());
    switchBetween(
        run, source, player.corner, [&](const std::string &address) { mpris.open(address); });
}

void zap(benchmark::State &run)
{
    Screen screen;
    screen.clear(background);
    ChannelSidebar sidebar(screen, variable("ZEPH_CHANNELS"));
    bool isGreenNext = true;
    const auto measure = [&]() -> std::optional<Seconds> {
        if (!sidebar.aimAt(isGreenNext ? isBlue : isMagenta))
            return std::nullopt;
        std::this_thread::sleep_for(pause);
        const auto start = Clock::now();
        sidebar.click();
        if (!sidebar.awaitPicture(isGreenNext ? isGreen : isRed))
            return std::nullopt;
        isGreenNext = !isGreenNext;
        return Clock::now() - start;
    };
    // The first loads the engine, and the window takes the picture's shape.
    if (!measure() || !measure()) {
        run.SkipWithError("nothing was seen on the screen");
        return;
    }
    std::this_thread::sleep_for(std::chrono::seconds(1));
    repeat(run, measure);
}

} // namespace

void addSwitchingBenchmarks()
{
    for (const Source &source : sources()) {
        const auto addSwitch = [&](const std::string &name, const auto &measure) {
            add("switch to " + source.name + '/' + name, times,
                [=](auto &run) { measure(run, source); });
        };
        addSwitch("Zeph", [](auto &run, const Source &to) {
            switchByInput(run, to, variable("ZEPH_SWITCH_CLIPS"));
        });
        addSwitch("mpv", switchInMpv);
        if (const std::string path = variable("ZEPH_PLAY_WITH_LIBVLC"); !path.empty())
            addSwitch(
                "libVLC", [path](auto &run, const Source &to) { switchByInput(run, to, path); });
        for (const Player &player : { celluloid(), haruna() }) {
            if (player.isInstalled())
                addSwitch(player.name,
                    [player](auto &run, const Source &to) { switchOverMpris(run, to, player); });
        }
    }
    add("zap/Zeph", times, zap);
}
