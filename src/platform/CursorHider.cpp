#include "platform/CursorHider.h"

#include <QCursor>
#include <QGuiApplication>

namespace zeph {

CursorHider::~CursorHider()
{
    show();
}

void CursorHider::hideUntilMouseMoves()
{
    if (m_isHidden)
        return;
    m_isHidden = true;
    QGuiApplication::setOverrideCursor(QCursor(Qt::BlankCursor));
    if (!m_mouseMonitor) {
        m_mouseMonitor.emplace(QEvent::MouseMove, [this](QWindow &, QEvent &) {
            show();
            return false;
        });
    }
}

void CursorHider::show()
{
    if (!m_isHidden)
        return;
    m_isHidden = false;
    QGuiApplication::restoreOverrideCursor();
}

} // namespace zeph
