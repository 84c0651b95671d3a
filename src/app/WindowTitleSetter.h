// What the main window's own frame has to do with what plays in it.
#pragma once

#include "app/LiveResize.h"

#include <QQmlEngine>
#include <QQuickItem>
#include <QUuid>

namespace zeph {

/// An item without a picture, which reaches the window that it is in: gives it its title, its
/// smallest size, its first size and place, and, once for each load, the width at which the picture
/// fills it. Full screen and maximized windows keep their size; they are fitted when they are
/// windows again. Where the desktop places windows itself, as on Wayland, only the size changes.
/// Main thread only.
class WindowTitleSetter : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QString title MEMBER m_title NOTIFY changed)
    Q_PROPERTY(bool sidebarVisible MEMBER m_sidebarVisible NOTIFY changed)
    /// Of the current load.
    Q_PROPERTY(QUuid mediaLoadID MEMBER m_mediaLoadID NOTIFY changed)
    /// Width ÷ height of the picture.
    Q_PROPERTY(double videoAspectRatio MEMBER m_videoAspectRatio NOTIFY changed)
    /// The load that `videoAspectRatio` is of.
    Q_PROPERTY(QUuid videoAspectMediaLoadID MEMBER m_videoAspectMediaLoadID NOTIFY changed)
    Q_PROPERTY(bool isFullScreen MEMBER m_isFullScreen NOTIFY changed)

public:
    class Coordinator;

    explicit WindowTitleSetter(QQuickItem *parent = nullptr);
    ~WindowTitleSetter() override;

Q_SIGNALS:
    void changed();

protected:
    void componentComplete() override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;

private:
    void scheduleUpdate();
    void updateWindow(QQuickWindow &window);
    void updateSize(QQuickWindow &window);

    static bool didApplyInitialSize; ///< Once in a run.

    QString m_title;
    bool m_sidebarVisible = false;
    QUuid m_mediaLoadID;
    double m_videoAspectRatio = 0;
    QUuid m_videoAspectMediaLoadID;
    bool m_isFullScreen = false;
    bool m_updateScheduled = false;
    LiveResize m_liveResize;
    std::unique_ptr<Coordinator> m_coordinator;
};

} // namespace zeph
