#include "surface/ClickCounter.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QStyleHints>

#include <cmath>

namespace zeph {

int ClickCounter::count(const QMouseEvent &press)
{
    const QStyleHints *settings = QGuiApplication::styleHints();
    const QPointF moved = press.globalPosition() - m_place;
    const int distance = settings->mouseDoubleClickDistance();
    const bool follows = press.timestamp() - m_time < quint64(settings->mouseDoubleClickInterval())
        && std::abs(moved.x()) <= distance && std::abs(moved.y()) <= distance;
    m_count = follows ? m_count + 1 : 1;
    m_time = press.timestamp();
    m_place = press.globalPosition();
    return m_count;
}

} // namespace zeph
