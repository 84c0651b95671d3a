// A list as the user meets it: how soon the window shows it after it has come, what it takes of the
// memory, and whether it moves without a jerk from end to end. To be run on a virtual display.
#include "Channels.h"
#include "library/ContentView.h"
#include "library/ListServer.h"
#include "platform/FreedMemory.h"
#include "support/MemoryUse.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QQmlApplicationEngine>
#include <QQmlExtensionPlugin>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QThreadPool>

#include <algorithm>
#include <clocale>

Q_IMPORT_QML_PLUGIN(ZephPlayer_PlayerPlugin)
Q_IMPORT_QML_PLUGIN(ZephPlayer_SurfacePlugin)
Q_IMPORT_QML_PLUGIN(ZephPlayer_LibraryPlugin)

using namespace zeph;
using namespace zeph::bench;

namespace {

const QByteArray windowSource = R"(
import QtQuick.Controls
import ZephPlayer.Library

ApplicationWindow {
    id: window
    required property ContentView view
    width: 1280
    height: 800
    visible: true
    color: "black"
    ContentViewLayout {
        anchors.fill: parent
        view: window.view
    }
}
)";

struct Window {
    Window()
    {
        engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
        engine.setInitialProperties({ { QStringLiteral("view"), QVariant::fromValue(&view) } });
        engine.loadData(windowSource);
        window = qobject_cast<QQuickWindow *>(engine.rootObjects().value(0));
        view.controlBar()->toggleSidebar();
        QObject::connect(
            window, &QQuickWindow::frameSwapped, window, [this] { ++frames; },
            Qt::QueuedConnection);
    }

    void open(const QUrl &list)
    {
        model.openRemote(list.toString(), {});
        while (model.isLoading())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    /// Waits for frames which show all that has happened until now. One may already be on its way.
    void awaitFrames(int count)
    {
        const int end = frames + count;
        while (frames < end) {
            window->update();
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }

    /// What moves the rows.
    QQuickItem *list() const
    {
        const auto items = window->findChildren<QQuickItem *>();
        const auto found = std::ranges::find_if(items, [](const QQuickItem *item) {
            return item->inherits("QQuickFlickable") && item->isVisible()
                && item->property("channels").isValid();
        });
        return found == items.end() ? nullptr : *found;
    }

    QTemporaryDir folder;
    NoPanels panels;
    UserDefaults defaults { folder.filePath(QStringLiteral("settings.conf")) };
    PlayerModel model { panels };
    ContentView view { model, defaults, panels };
    QQmlApplicationEngine engine;
    QQuickWindow *window = nullptr;
    int frames = 0;
};

double milliseconds(std::chrono::steady_clock::duration duration)
{
    return std::chrono::duration<double, std::milli>(duration).count();
}

QString listFile(int count)
{
    static const QTemporaryDir folder;
    QString path = folder.filePath(QString::number(count));
    QFile file(path);
    if (!file.exists() && file.open(QIODevice::WriteOnly))
        file.write(channelList(count));
    return path;
}

/// From the last byte of the answer to the rows on the screen.
void lastByteToList(benchmark::State &state)
{
    const QString file = listFile(static_cast<int>(state.range(0)));
    Window window;
    window.awaitFrames(2);
    resetPeakMemory();
    for ([[maybe_unused]] auto _ : state) {
        const ListServer server(file);
        window.open(server.url());
        window.awaitFrames(2);
        state.SetIterationTime(
            milliseconds(std::chrono::steady_clock::now() - server.lastByte()) / 1000);
    }
    // The list is prepared for searches, and the one before it goes.
    QThreadPool::globalInstance()->waitForDone();
    constexpr double megabyte = 1e6;
    state.counters["MB"] = double(currentMemory()) / megabyte;
    state.counters["peak_MB"] = double(peakMemory()) / megabyte;
}

/// The list goes to its end in steps, as when its scroll bar is drawn.
void scrollEndToEnd(benchmark::State &state)
{
    constexpr int steps = 600;
    Window window;
    const ListServer server(listFile(static_cast<int>(state.range(0))));
    window.open(server.url());
    window.awaitFrames(2);
    QQuickItem *const list = window.list();
    const double end = list->property("contentHeight").toDouble() - list->height();
    std::vector<double> frames;
    for ([[maybe_unused]] auto _ : state) {
        for (int step = 1; step <= steps; ++step) {
            const auto start = std::chrono::steady_clock::now();
            list->setProperty("contentY", end * step / steps);
            window.awaitFrames(1);
            frames.push_back(milliseconds(std::chrono::steady_clock::now() - start));
        }
    }
    std::ranges::sort(frames);
    state.counters["median_frame_ms"] = frames[frames.size() / 2];
    state.counters["max_frame_ms"] = frames.back();
    state.counters["over_33_ms"] = double(frames.end() - std::ranges::upper_bound(frames, 33.0));
}

void forAllSizes(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(100)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
}

} // namespace

BENCHMARK(lastByteToList)->Apply(forAllSizes)->Iterations(10)->UseManualTime();
BENCHMARK(scrollEndToEnd)->Apply(forAllSizes)->Iterations(1);

int main(int argc, char *argv[])
{
    keepNoFreedMemory();
    QQuickWindow::setGraphicsApi(QSGRendererInterface::OpenGL);
    const QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
