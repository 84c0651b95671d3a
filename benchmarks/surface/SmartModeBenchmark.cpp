// What it costs to follow faces: to the main thread, to the render thread, and in pictures that are
// not shown. See run-smart-mode-benchmark.
#include "Stage.h"

#include "platform/MediaItemVideoOutput.h"

#include <benchmark/benchmark.h>

#include <QGuiApplication>

#include <algorithm>
#include <clocale>
#include <mutex>
#include <set>

using namespace bench;
using Mode = zeph::PortraitDisplayMode;

namespace {

QString clip(const std::string &name)
{
    return qEnvironmentVariable("ZEPH_CLIPS") + u'/' + QString::fromStdString(name);
}

double median(std::vector<double> values)
{
    std::ranges::sort(values);
    return values.empty() ? 0 : values[values.size() / 2];
}

/// A step on the main thread, and on the render thread the difference that a copy makes: every
/// other picture is copied.
void trackingStep(benchmark::State &state, const std::string &name, QSize size)
{
    constexpr size_t steps = 20;
    constexpr size_t pictures = 20;
    for ([[maybe_unused]] auto _ : state) {
        Stage stage(clip(name), size);
        stage.view.setDisplayMode(Mode::Smart);
        stage.player.play();
        std::vector<double> &times = stage.detector->times;
        Stage::runUntil([&] { return times.size() >= steps; });
        stage.view.setDisplayMode(Mode::Manual);

        zeph::MediaItemVideoOutput output(zeph::FaceDetector::pictureSize);
        stage.player.currentItem()->setVideoOutput(&output);
        bool copied = false;
        std::vector<double> with;
        std::vector<double> without;
        QObject::connect(&stage.window, &QQuickWindow::frameSwapped, &output, [&] {
            (copied ? with : without).push_back(stage.lastDrawing);
            if (!copied)
                output.copyPixelBuffer([&](const QImage &) { copied = true; });
            else
                copied = false;
        });
        Stage::runUntil([&] { return with.size() >= pictures && without.size() >= pictures; });
        state.SetIterationTime(median(times) / 1000);
        state.counters["main_ms"] = median(times);
        state.counters["main_cpu_ms"] = median(stage.detector->processorTimes);
        state.counters["main_max_ms"] = *std::ranges::max_element(times);
        state.counters["draw_ms"] = median(without);
        state.counters["copy_ms"] = median(with) - median(without);
    }
}

/// The number that a picture of the numbered clip carries in stripes from above to below, of which
/// the outermost are not looked at. Called in the render thread.
int numberOnTheWindow(QSize window, double enlargement)
{
    constexpr int stripes = 14;
    QOpenGLFunctions *gl = QOpenGLContext::currentContext()->functions();
    std::vector<unsigned char> column(size_t(window.height()) * 4);
    gl->glReadPixels(
        window.width() / 2, 0, 1, window.height(), GL_RGBA, GL_UNSIGNED_BYTE, column.data());
    int number = 0;
    for (int bit = 0; bit < stripes - 2; ++bit) {
        // OpenGL counts from below.
        const double y = 0.5 + (0.5 - (bit + 1.5) / stripes) * enlargement;
        number |= int(column[size_t(y * window.height()) * 4] > 128) << bit;
    }
    return number;
}

/// Pictures of the clip that were never drawn.
void dropped(benchmark::State &state, Mode mode)
{
    constexpr double seconds = 60;
    const QSize size(1280, 720);
    const bool isEnlarged = mode != Mode::Normal;
    for ([[maybe_unused]] auto _ : state) {
        std::mutex mutex;
        std::set<int> numbers;
        Stage stage(clip("numbered-1080p30.mp4"), size);
        stage.drawn = [&] {
            const int number = numberOnTheWindow(size, isEnlarged ? 1.13 : 1);
            const std::lock_guard lock(mutex);
            numbers.insert(number);
        };
        stage.view.setDisplayMode(mode);
        stage.player.play();
        Stage::runUntil([&] { return stage.player.currentTime() >= 1; });
        {
            const std::lock_guard lock(mutex);
            numbers.clear();
        }
        Stage::runUntil([&] { return stage.player.currentTime() >= seconds; });
        const std::lock_guard lock(mutex);
        const int expected = *numbers.rbegin() - *numbers.begin() + 1;
        state.SetIterationTime(seconds);
        state.counters["pictures"] = expected;
        state.counters["dropped"] = expected - int(numbers.size());
        state.counters["steps"] = double(stage.detector->times.size());
    }
}

void add(const std::string &name, const std::function<void(benchmark::State &)> &run)
{
    benchmark::RegisterBenchmark(name.c_str(), run)
        ->Iterations(1)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char *argv[])
{
    benchmark::Initialize(&argc, argv);
    QQuickWindow::setGraphicsApi(QSGRendererInterface::OpenGL);
    const QGuiApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    add("tracking step/720p", [](auto &state) {
        trackingStep(state, "faces-720p30.mp4", { 1280, 720 });
    });
    add("tracking step/1080p", [](auto &state) {
        trackingStep(state, "faces-1080p30.mp4", { 1920, 1080 });
    });
    add("tracking step/2160p", [](auto &state) {
        trackingStep(state, "faces-2160p30.mp4", { 3840, 2160 });
    });
    add("dropped in 60 s of 1080p30/normal", [](auto &state) { dropped(state, Mode::Normal); });
    add("dropped in 60 s of 1080p30/manual", [](auto &state) { dropped(state, Mode::Manual); });
    add("dropped in 60 s of 1080p30/smart", [](auto &state) { dropped(state, Mode::Smart); });
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
