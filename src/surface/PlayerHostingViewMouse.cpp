// What the mouse does on the video surface.
#include "platform/FullScreen.h"
#include "platform/PlayerNotifications.h"
#include "surface/PlayerHostingView.h"

#include <QGuiApplication>
#include <QQuickWindow>
#include <QStyleHints>

#include <algorithm>

namespace zeph {

void PlayerHostingView::mousePressEvent(QMouseEvent *event)
{
    m_drag = {};
    if (m_clicks.count(*event) == 2) {
        if (window())
            toggleFullScreen(*window());
        return;
    }
    NotificationCenter::defaultCenter().post(playerSurfaceClicked, window());
    if (m_displayMode == PortraitDisplayMode::Manual)
        m_drag = PanDrag { event->scenePosition().x(), m_horizontalPan };
    else
        m_drag = WindowDrag { event->scenePosition() };
}

void PlayerHostingView::mouseMoveEvent(QMouseEvent *event)
{
    if (const auto *pan = std::get_if<PanDrag>(&m_drag))
        dragPan(*pan, event->scenePosition());
    else if (const auto *move = std::get_if<WindowDrag>(&m_drag))
        dragWindow(*move, event->scenePosition());
}

void PlayerHostingView::dragPan(const PanDrag &drag, QPointF to)
{
    const double distance = std::max(width() * 0.35, 1.0);
    m_horizontalPan = std::clamp(drag.pan + (to.x() - drag.x) / distance, -1.0, 1.0);
    updatePlayerFrame();
}

// Not before the mouse has moved: the window manager takes the mouse over, and the second press of
// a double click would not arrive.
void PlayerHostingView::dragWindow(const WindowDrag &drag, QPointF to)
{
    const int distance = QGuiApplication::styleHints()->startDragDistance();
    if ((to - drag.from).manhattanLength() < distance)
        return;
    m_drag = {};
    if (window())
        window()->startSystemMove();
}

void PlayerHostingView::mouseReleaseEvent(QMouseEvent *)
{
    m_drag = {};
}

void PlayerHostingView::mouseDoubleClickEvent(QMouseEvent *)
{
    // Its second press was counted already.
}

void PlayerHostingView::mouseUngrabEvent()
{
    m_drag = {};
}

} // namespace zeph
