#include "app/LiveResize.h"

namespace zeph {

void LiveResize::setWindow(QWindow *window)
{
    if (m_window)
        m_window->disconnect(this);
    m_window = window;
    m_end.cancel();
    if (!window)
        return;
    connect(window, &QWindow::widthChanged, this, &LiveResize::note);
    connect(window, &QWindow::heightChanged, this, &LiveResize::note);
}

void LiveResize::setGeometry(const QRect &geometry)
{
    m_ownSize = geometry.size();
    m_window->setGeometry(geometry);
}

void LiveResize::note()
{
    if (m_window->isExposed() && m_window->size() != m_ownSize)
        m_end.start(settled, [this] { Q_EMIT ended(); });
}

} // namespace zeph
