// A page that fills the screen does so by its window.
#pragma once

#include <QMetaObject>
#include <QPointer>
#include <QWindow>

#include <functional>

namespace zeph {

/// Takes a window to full screen for a page, and back to what it was. Main thread only.
class PageFullScreen {
public:
    /// `pageHasToLeave` is called when the window leaves full screen otherwise.
    explicit PageFullScreen(std::function<void()> pageHasToLeave);
    ~PageFullScreen();
    PageFullScreen(const PageFullScreen &) = delete;
    PageFullScreen &operator=(const PageFullScreen &) = delete;

    void enter(QWindow &window);
    /// Does nothing when the page does not fill the screen.
    void leave();

private:
    const std::function<void()> m_pageHasToLeave;
    QPointer<QWindow> m_window; ///< Null while the page does not fill the screen.
    bool m_windowWasFullScreen = false;
    QMetaObject::Connection m_observation;
};

} // namespace zeph
