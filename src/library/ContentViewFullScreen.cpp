// Full screen, and what goes out of the way of the picture.
#include "library/ContentView.h"

#include "platform/FullScreen.h"
#include "platform/KeyboardFocus.h"
#include "platform/PlayerSurfaceRegistry.h"

#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>

#include <utility>

namespace zeph {

namespace {

QWindow *keyWindow()
{
    return QGuiApplication::focusWindow();
}

} // namespace

void ContentView::toggleFullScreen()
{
    if (m_window)
        zeph::toggleFullScreen(*m_window);
}

void ContentView::raise()
{
    if (!m_window)
        return;
    m_window->raise();
    m_window->requestActivate();
}

/// The menus have a key for full screen, too, which also works while a text is edited.
bool ContentView::handleKeyPress(const QKeyEvent &press)
{
    const bool toggles = press.key() == Qt::Key_F && press.modifiers() == Qt::NoModifier;
    const bool leaves = press.key() == Qt::Key_Escape && m_isFullScreen;
    if (!(toggles || leaves) || focusKeepsKey(press))
        return false;
    if (!press.isAutoRepeat())
        toggleFullScreen();
    return true;
}

void ContentView::followWindowState(Qt::WindowStates states)
{
    const bool isFullScreen = states.testFlag(Qt::WindowFullScreen);
    if (std::exchange(m_isFullScreen, isFullScreen) == isFullScreen)
        return;
    if (!isFullScreen)
        m_controlsHideTask.cancel();
    setFullScreenControlsVisible(false);
    Q_EMIT isFullScreenChanged();
}

void ContentView::setFullScreenControlsVisible(bool visible)
{
    if (std::exchange(m_fullScreenControlsVisible, visible) != visible)
        Q_EMIT fullScreenControlsVisibleChanged();
}

void ContentView::showFullScreenControls()
{
    m_controlsHideTask.cancel();
    setFullScreenControlsVisible(true);
    hideFullScreenControlsLater();
}

void ContentView::hideFullScreenControlsLater()
{
    m_controlsHideTask.start(controlsHideDelay, [this] {
        // Not from under the hand that drags a slider: drags are no movements.
        if (m_controlBar.isDragged())
            hideFullScreenControlsLater();
        else
            setFullScreenControlsVisible(false);
    });
}

void ContentView::mouseMoved(QWindow *window)
{
    if (window && window == keyWindow())
        scheduleCursorHideIfNeeded(*window);
    if (m_isFullScreen && window == keyWindow())
        showFullScreenControls();
}

void ContentView::followPlaying()
{
    if (m_model.isPlaying() && keyWindow())
        scheduleCursorHideIfNeeded(*keyWindow());
    else
        m_cursorHideTask.cancel();
}

void ContentView::scheduleCursorHideIfNeeded(QWindow &window)
{
    m_cursorHideTask.cancel();
    if (!m_model.isPlaying() || !isMouseOverPlayer(window))
        return;
    m_cursorHideTask.start(cursorHideDelay, [this, weakWindow = QPointer(&window)] {
        if (weakWindow)
            hideCursorIfUnused(*weakWindow);
    });
}

void ContentView::hideCursorIfUnused(QWindow &window)
{
    if (m_model.isPlaying() && &window == keyWindow() && !isDialogOpen()
        && isMouseOverPlayer(window))
        m_cursor.hideUntilMouseMoves();
}

bool ContentView::isMouseOverPlayer(const QWindow &window) const
{
    const QQuickItem *view = PlayerSurfaceRegistry::shared().view();
    if (!view || view->window() != &window)
        return false;
    const QPointF inWindow = window.mapFromGlobal(QPointF(QCursor::pos()));
    return view->contains(view->mapFromScene(inWindow));
}

} // namespace zeph
