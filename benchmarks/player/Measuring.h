// What the benchmarks of the whole player share. Each is called WHAT/PLAYER, so that results of the
// same work can be put side by side.
#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <functional>
#include <optional>
#include <string>

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

/// A variable of the environment, which says where things are; see run-player-benchmarks.
std::string variable(const char *name);

void add(
    const std::string &name, int iterations, const std::function<void(benchmark::State &)> &run);

/// Repeats a measurement, which is nothing when what it waits for was not seen on the screen, and
/// reports its median as "median_ms".
void repeat(benchmark::State &run, const std::function<std::optional<Seconds>()> &measure);

double median(std::vector<double> values);

// Colours are 0xRRGGBB.
constexpr unsigned background = 0x404040;
bool isSeen(unsigned colour);
bool isLight(unsigned colour);
bool isGreen(unsigned colour);
bool isRed(unsigned colour);
bool isBlue(unsigned colour);
bool isMagenta(unsigned colour);

// Each registers the benchmarks of the file of its name.
void addStartBenchmarks();
void addEmptyWindowBenchmarks();
void addSwitchingBenchmarks();
void addPlayingBenchmarks();
