// A window that plays a clip, and what its render thread does meanwhile.
#pragma once

#include "platform/FaceDetector.h"
#include "platform/MediaPlayer.h"
#include "surface/PlayerLayerView.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QQuickWindow>

#include <atomic>
#include <chrono>
#include <ctime>
#include <functional>
#include <vector>

namespace bench {

using Clock = std::chrono::steady_clock;

inline double millisecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

/// Milliseconds that each look for faces takes: of time, and of the main thread's processor time.
class TimedDetector final : public zeph::FaceDetector {
public:
    bool isReady() override { return m_shared->isReady(); }
    QList<QRectF> faces(const QImage &picture) override
    {
        const auto start = Clock::now();
        const double processorStart = processorMilliseconds();
        QList<QRectF> faces = m_shared->faces(picture);
        times.push_back(millisecondsSince(start));
        processorTimes.push_back(processorMilliseconds() - processorStart);
        return faces;
    }

    std::vector<double> times;
    std::vector<double> processorTimes;

private:
    static double processorMilliseconds()
    {
        timespec time {};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
    }

    const std::shared_ptr<FaceDetector> m_shared = FaceDetector::shared();
};

class Stage {
public:
    Stage(const QString &clip, QSize size);

    // What the render thread uses stands before the window, so that it outlives it.
    Clock::time_point drawingSince;
    /// Milliseconds that the render thread took to draw the last picture into its texture.
    std::atomic<double> lastDrawing = 0;
    /// Called in the render thread when a picture is drawn.
    std::function<void()> drawn;

    zeph::MediaPlayer player;
    QQuickWindow window;
    zeph::PlayerLayerView view { window.contentItem() };
    const std::shared_ptr<TimedDetector> detector = std::make_shared<TimedDetector>();

    /// Lets the program run until then.
    static void runUntil(const std::function<bool()> &condition);
};

inline Stage::Stage(const QString &clip, QSize size)
{
    // Before the video's own node, which draws in the same signal.
    QObject::connect(
        &window, &QQuickWindow::beforeRendering, &window, [this] { drawingSince = Clock::now(); },
        Qt::DirectConnection);
    QObject::connect(
        &window, &QQuickWindow::beforeRenderPassRecording, &window,
        [this] { lastDrawing = millisecondsSince(drawingSince); }, Qt::DirectConnection);
    QObject::connect(
        &window, &QQuickWindow::afterRendering, &window,
        [this] {
            if (drawn)
                drawn();
        },
        Qt::DirectConnection);
    // A clip that is over begins again.
    QObject::connect(
        &player, &zeph::MediaPlayer::rateChanged, &window,
        [this] {
            if (player.rate() == 0)
                player.play();
        },
        Qt::QueuedConnection);
    window.setColor(Qt::black);
    window.resize(size);
    view.setSize(size);
    view.setPlayer(&player);
    view.hostingView().setFaceDetector(detector);
    window.show();
    player.replaceCurrentItem(std::make_unique<zeph::MediaItem>(QUrl::fromLocalFile(clip)));
}

inline void Stage::runUntil(const std::function<bool()> &condition)
{
    while (!condition())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
}

} // namespace bench
