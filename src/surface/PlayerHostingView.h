// The native video surface.
#pragma once

#include "platform/MediaPlayer.h"
#include "surface/ClickCounter.h"
#include "surface/PortraitDisplayMode.h"

#include <QImage>
#include <QPointer>
#include <QQuickItem>
#include <QTimer>

#include <chrono>
#include <memory>
#include <variant>

namespace zeph {

class FaceDetector;
class MediaItemVideoOutput;
class VideoLayer;

/// Shows the picture of a media player in one of the portrait display modes: a crop layer cuts out
/// a part of the view, and a player layer within it holds the picture. Nothing is ever animated.
///
/// A click posts `playerSurfaceClicked`, a double click toggles full screen. Dragging moves the
/// picture in the `Manual` mode and the window in the others. In the `Smart` mode the pan follows
/// the largest face. Main thread only.
class PlayerHostingView : public QQuickItem {
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds smartInterval { 450 };

    explicit PlayerHostingView(QQuickItem *parent = nullptr);
    ~PlayerHostingView() override;

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

    /// Who finds faces for `Smart`: the program's shared detector, unless there is one already when
    /// the mode is first chosen.
    void setFaceDetector(std::shared_ptr<FaceDetector> detector);

    const QQuickItem &cropLayer() const { return *m_cropLayer; }
    const VideoLayer &playerLayer() const { return *m_playerLayer; }
    /// Through which `Smart` looks at the player's current item. Null before the first item.
    const MediaItemVideoOutput *videoOutput() const { return m_videoOutput.get(); }
    const QTimer &smartTimer() const { return m_smartTimer; }

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

    void tapCurrentItem();
    void detachVideoOutput();
    void applyDisplayMode();
    void updateSmartTimer();
    void trackLargestFace();
    void followLargestFace(const QImage &picture);
    void dragPan(const PanDrag &drag, QPointF to);
    void dragWindow(const WindowDrag &drag, QPointF to);

    // Child items, destroyed with this one.
    QQuickItem *const m_cropLayer;
    VideoLayer *const m_playerLayer;

    PortraitDisplayMode m_displayMode = PortraitDisplayMode::Normal;
    bool m_fillScreen = false;
    double m_horizontalPan = 0;
    QTimer m_smartTimer;
    std::shared_ptr<FaceDetector> m_faceDetector;
    std::unique_ptr<MediaItemVideoOutput> m_videoOutput;
    QPointer<MediaItem> m_observedItem; ///< The one that the output is attached to.
    ClickCounter m_clicks;
    std::variant<std::monostate, PanDrag, WindowDrag> m_drag;
};

} // namespace zeph
