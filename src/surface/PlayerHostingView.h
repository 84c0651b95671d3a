// The native video surface.
#pragma once

#include "platform/MediaPlayer.h"
#include "surface/ClickCounter.h"
#include "surface/PortraitDisplayMode.h"

#include <QQuickItem>

#include <variant>

namespace zeph {

class VideoLayer;

/// Shows the picture of a media player in one of the portrait display modes: a crop layer cuts out
/// a part of the view, and a player layer within it holds the picture. Nothing is ever animated.
///
/// A click posts `playerSurfaceClicked`, a double click toggles full screen. Dragging moves the
/// picture in the `Manual` mode and the window in the others. Main thread only.
class PlayerHostingView : public QQuickItem {
    Q_OBJECT

public:
    explicit PlayerHostingView(QQuickItem *parent = nullptr);

    MediaPlayer *player() const;
    /// Null shows nothing.
    void setPlayer(MediaPlayer *player);

    PortraitDisplayMode displayMode() const { return m_displayMode; }
    /// Keeps the pan, but for `Fill` and `Rotate`, which begin again in the middle.
    void setDisplayMode(PortraitDisplayMode mode);

    bool fillScreen() const { return m_fillScreen; }
    /// Whether the window fills the screen. The picture's place does not depend on it.
    void setFillScreen(bool fillScreen);

    /// What `Manual` and `Smart` show of a picture that is wider than the column: 0 the middle,
    /// 1 the left edge, −1 the right edge.
    double horizontalPan() const { return m_horizontalPan; }

    /// Works out where the layers go, and moves them there.
    void updatePlayerFrame();

    const QQuickItem &cropLayer() const { return *m_cropLayer; }
    const VideoLayer &playerLayer() const { return *m_playerLayer; }

protected:
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *data) override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseUngrabEvent() override;

private:
    struct PanDrag {
        double x; ///< Where it began, in the window's coordinates.
        double pan;
    };
    struct WindowDrag {
        QPointF from; ///< Likewise.
    };

    void updateGravity();
    void dragPan(const PanDrag &drag, QPointF to);
    void dragWindow(const WindowDrag &drag, QPointF to);

    // Child items, destroyed with this one.
    QQuickItem *const m_cropLayer;
    VideoLayer *const m_playerLayer;

    PortraitDisplayMode m_displayMode = PortraitDisplayMode::Normal;
    bool m_fillScreen = false;
    double m_horizontalPan = 0;
    ClickCounter m_clicks;
    std::variant<std::monostate, PanDrag, WindowDrag> m_drag;
};

} // namespace zeph
