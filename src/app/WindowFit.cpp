#include "app/WindowFit.h"

#include <QWindow>

#include <algorithm>
#include <cmath>

namespace zeph {

double fittedContentWidth(double aspectRatio, double contentHeight, bool sidebarVisible)
{
    const double videoHeight = std::max(contentHeight - controlBarHeight, 1.0);
    const int besidesVideo = sidebarVisible ? sidebarWidth : 0;
    const double minimum = minimumSize(sidebarVisible).width();
    return std::max(besidesVideo + aspectRatio * videoHeight, minimum);
}

QRect fittedFrame(QRect frame, QMargins margins, double contentWidth, QRect available)
{
    const double width = std::round(contentWidth) + margins.left() + margins.right();
    frame.setWidth(static_cast<int>(std::min<double>(width, available.width())));
    if (frame.right() > available.right())
        frame.moveRight(available.right());
    if (frame.left() < available.left())
        frame.moveLeft(available.left());
    if (frame.bottom() > available.bottom())
        frame.moveBottom(available.bottom());
    return frame;
}

bool hasOwnSize(const QWindow &window)
{
    return !(window.windowStates() & (Qt::WindowFullScreen | Qt::WindowMaximized));
}

QRect centred(QSize size, QRect available)
{
    QRect rect({}, size);
    rect.moveCenter(available.center());
    return rect;
}

} // namespace zeph
