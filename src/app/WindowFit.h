// The sizes of the main window.
#pragma once

#include <QMargins>
#include <QRect>
#include <QSize>

class QWindow;

namespace zeph {

// All in the units of the scene.
inline constexpr QSize initialWindowSize { 700, 430 };
inline constexpr QSize minimumWindowSize { 520, 360 };
inline constexpr QSize minimumWindowSizeWithSidebar { 780, 360 };
inline constexpr int sidebarWidth = 246;
inline constexpr int controlBarHeight = 34;

constexpr QSize minimumSize(bool sidebarVisible)
{
    return sidebarVisible ? minimumWindowSizeWithSidebar : minimumWindowSize;
}

/// Width of the window's content in which a picture of `aspectRatio`, which is finite and more than
/// 0, fills what the sidebar and the control bar leave of it.
double fittedContentWidth(double aspectRatio, double contentHeight, bool sidebarVisible);

/// `frame` with another width of the content, but not wider than `available`, the screen without
/// the desktop's own bars, and moved to stay inside it.
QRect fittedFrame(QRect frame, QMargins margins, double contentWidth, QRect available);

/// Whether the size of `window` is for us to choose: it fills neither the screen nor the desktop.
bool hasOwnSize(const QWindow &window);

/// `size` in the middle of `available`.
QRect centred(QSize size, QRect available);

} // namespace zeph
