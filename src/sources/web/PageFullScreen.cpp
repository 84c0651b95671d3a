#include "sources/web/PageFullScreen.h"

#include "platform/FullScreen.h"

#include <utility>

namespace zeph {

PageFullScreen::PageFullScreen(std::function<void()> pageHasToLeave)
    : m_pageHasToLeave(std::move(pageHasToLeave))
{
}

PageFullScreen::~PageFullScreen()
{
    leave();
}

void PageFullScreen::enter(QWindow &window)
{
    if (m_window)
        return;
    m_windowWasFullScreen = window.windowStates() & Qt::WindowFullScreen;
    if (!m_windowWasFullScreen)
        toggleFullScreen(window);
    m_window = &window;
    const auto follow = [this] {
        // It stays full screen while it is hidden or minimised.
        if (!m_window || (m_window->windowStates() & Qt::WindowFullScreen))
            return;
        QObject::disconnect(m_observation);
        m_window.clear();
        m_pageHasToLeave();
    };
    m_observation = QObject::connect(&window, &QWindow::visibilityChanged, follow);
}

void PageFullScreen::leave()
{
    QObject::disconnect(m_observation);
    QWindow *window = std::exchange(m_window, nullptr);
    if (window && !m_windowWasFullScreen)
        toggleFullScreen(*window);
}

} // namespace zeph
