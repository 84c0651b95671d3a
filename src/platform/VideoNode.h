// The engine's picture in the scene graph.
#pragma once

#include "platform/VideoCanvas.h"

#include <QObject>
#include <QSGSimpleTextureNode>

#include <memory>

class QQuickWindow;

namespace zeph {

/// The node of a `VideoLayer`. Lives in the render thread, where it is made and destroyed with the
/// window's OpenGL context current.
class VideoNode : public QObject, public QSGSimpleTextureNode {
    Q_OBJECT

public:
    VideoNode(QQuickWindow *window, std::unique_ptr<VideoCanvas> canvas);

    const VideoCanvas &canvas() const { return *m_canvas; }

    /// Where the picture stands, in the item's coordinates, and how many pixels a unit of them has.
    void setGeometry(const QRectF &rect, double devicePixelRatio);

Q_SIGNALS:
    /// There may be a new picture to draw. Emitted from any thread.
    void pictureDue();

private:
    void resizeCanvas(QSize pixels);
    void drawPicture();

    QQuickWindow *const m_window;
    const std::unique_ptr<VideoCanvas> m_canvas;
    QSize m_pixels;
    bool m_redraw = false;
};

} // namespace zeph
