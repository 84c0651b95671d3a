#include "app/WindowTitleSetter.h"

#include "app/WindowFit.h"
#include "app/WindowTitleSetterCoordinator.h"

#include <QQuickWindow>
#include <QScreen>

#include <utility>

namespace zeph {

bool WindowTitleSetter::didApplyInitialSize = false;

WindowTitleSetter::WindowTitleSetter(QQuickItem *parent)
    : QQuickItem(parent), m_coordinator(std::make_unique<Coordinator>(m_liveResize))
{
    connect(this, &WindowTitleSetter::changed, this, &WindowTitleSetter::scheduleUpdate);
    connect(&m_liveResize, &LiveResize::ended, this, &WindowTitleSetter::scheduleUpdate);
}

WindowTitleSetter::~WindowTitleSetter() = default;

// The window is shown next: it has its first size and place from the start.
void WindowTitleSetter::componentComplete()
{
    QQuickItem::componentComplete();
    if (window())
        updateWindow(*window());
}

void WindowTitleSetter::itemChange(ItemChange change, const ItemChangeData &value)
{
    if (change == ItemSceneChange) {
        m_liveResize.setWindow(value.window);
        if (value.window) {
            connect(value.window, &QWindow::windowStateChanged, this,
                &WindowTitleSetter::scheduleUpdate, Qt::UniqueConnection);
            scheduleUpdate();
        }
    }
    QQuickItem::itemChange(change, value);
}

/// Of several changes at a time only the last has to reach the window.
void WindowTitleSetter::scheduleUpdate()
{
    if (std::exchange(m_updateScheduled, true))
        return;
    const auto update = [this] {
        m_updateScheduled = false;
        if (window())
            updateWindow(*window());
    };
    QMetaObject::invokeMethod(this, update, Qt::QueuedConnection);
}

void WindowTitleSetter::updateWindow(QQuickWindow &window)
{
    window.setTitle(m_title);
    if (!m_liveResize.isUnderWay())
        updateSize(window);
    m_coordinator->fitWindowWidthToVideoIfNeeded(&window, m_mediaLoadID, m_videoAspectRatio,
        m_videoAspectMediaLoadID, m_sidebarVisible, m_isFullScreen);
}

void WindowTitleSetter::updateSize(QQuickWindow &window)
{
    // The new minimum may enlarge the window at once.
    const QSize size = window.size();
    window.setMinimumSize(minimumSize(m_sidebarVisible));
    if (m_sidebarVisible && hasOwnSize(window)
        && size.width() < minimumWindowSizeWithSidebar.width()) {
        m_liveResize.setGeometry({ window.position(),
            QSize(minimumWindowSizeWithSidebar.width(),
                std::max(size.height(), initialWindowSize.height())) });
    }
    if (!std::exchange(didApplyInitialSize, true)) {
        const QRect available =
            window.screen() ? window.screen()->availableGeometry() : QRect({}, initialWindowSize);
        m_liveResize.setGeometry(centred(initialWindowSize, available));
    }
}

} // namespace zeph
