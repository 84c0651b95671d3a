#include "app/WindowTitleSetterCoordinator.h"

#include "app/WindowFit.h"

#include <QQuickWindow>
#include <QScreen>

#include <cmath>

namespace zeph {

namespace {

/// Of what is below the menu bar.
double contentHeight(const QQuickWindow &window)
{
    const auto *content = window.property("contentItem").value<QQuickItem *>();
    return content ? content->height() : initialWindowSize.height();
}

} // namespace

void WindowTitleSetter::Coordinator::fitWindowWidthToVideoIfNeeded(QQuickWindow *window,
    QUuid mediaLoadID, double videoAspectRatio, QUuid videoAspectMediaLoadID, bool sidebarVisible,
    bool isFullScreen)
{
    if (m_fittedMediaLoadID == mediaLoadID || mediaLoadID != videoAspectMediaLoadID)
        return;
    if (!std::isfinite(videoAspectRatio) || videoAspectRatio <= 0 || isFullScreen
        || !hasOwnSize(*window))
        return;
    const auto work = [this, weakWindow = QPointer(window), mediaLoadID, videoAspectRatio,
                          sidebarVisible] {
        if (weakWindow)
            fit(*weakWindow, mediaLoadID, videoAspectRatio, sidebarVisible);
    };
    m_pendingFit.start(fitDelay, work);
}

void WindowTitleSetter::Coordinator::fit(
    QQuickWindow &window, QUuid mediaLoadID, double videoAspectRatio, bool sidebarVisible)
{
    if (m_fittedMediaLoadID == mediaLoadID)
        return;
    if (m_liveResize.isUnderWay() || !hasOwnSize(window) || !window.screen())
        return;
    const double width =
        fittedContentWidth(videoAspectRatio, contentHeight(window), sidebarVisible);
    const QMargins margins = window.frameMargins();
    const QRect frame =
        fittedFrame(window.frameGeometry(), margins, width, window.screen()->availableGeometry());
    m_fittedMediaLoadID = mediaLoadID;
    m_liveResize.setGeometry(frame - margins);
}

} // namespace zeph
