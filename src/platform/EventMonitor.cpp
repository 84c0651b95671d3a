#include "platform/EventMonitor.h"

#include <QCoreApplication>
#include <QWindow>

#include <utility>

namespace zeph {

EventMonitor::EventMonitor(QEvent::Type type, Handler handler)
    : m_type(type), m_handler(std::move(handler))
{
    QCoreApplication::instance()->installEventFilter(this);
}

// Windows pass events on to what is in them, which would be seen here again.
bool EventMonitor::eventFilter(QObject *watched, QEvent *event)
{
    return event->type() == m_type && watched->isWindowType()
        && m_handler(*static_cast<QWindow *>(watched), *event);
}

} // namespace zeph
