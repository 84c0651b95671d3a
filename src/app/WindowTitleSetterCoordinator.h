// Fits the main window's width to the picture.
#pragma once

#include "app/WindowTitleSetter.h"
#include "platform/Delay.h"

#include <QPointer>

namespace zeph {

/// Remembers which load has been fitted, and holds the fit that is about to be made. Main thread
/// only.
class WindowTitleSetter::Coordinator {
public:
    static constexpr std::chrono::milliseconds fitDelay { 120 };

    /// Outlives the coordinator.
    explicit Coordinator(LiveResize &liveResize) : m_liveResize(liveResize) { }

    /// Schedules a fit if one is due: once for each load, as soon as its own ratio is known, and
    /// not while the window has no width of its own to choose. A later call replaces what is
    /// scheduled.
    void fitWindowWidthToVideoIfNeeded(QQuickWindow *window, QUuid mediaLoadID,
        double videoAspectRatio, QUuid videoAspectMediaLoadID, bool sidebarVisible,
        bool isFullScreen);

private:
    void fit(QQuickWindow &window, QUuid mediaLoadID, double videoAspectRatio, bool sidebarVisible);

    LiveResize &m_liveResize;
    QUuid m_fittedMediaLoadID;
    Delay m_pendingFit;
};

} // namespace zeph
