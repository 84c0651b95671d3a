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
class VideoNode : public QObject, public QSGTransformNode {
    Q_OBJECT

public:
    VideoNode(QQuickWindow *window, std::unique_ptr<VideoCanvas> canvas);

    const VideoCanvas &canvas() const { return *m_canvas; }

    /// The size of the item that the picture fills, how many pixels a unit of it has, and by how
    /// many degrees, a multiple of 90, what the engine draws is to be turned clockwise.
    void setGeometry(QSizeF size, double devicePixelRatio, int rotation);

    /// While it is not shown nothing is drawn.
    void setPictureShown(bool shown);

Q_SIGNALS:
    /// There may be a new picture to draw. Emitted from any thread.
    void pictureDue();

private:
    void resizeCanvas(QSize pixels);
    void drawPicture();

    QQuickWindow *const m_window;
    const std::unique_ptr<VideoCanvas> m_canvas;
    QSGSimpleTextureNode m_picture;
    QSize m_pixels;
    bool m_redraw = false;
};

} // namespace zeph
