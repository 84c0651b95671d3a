// The engine's picture in the scene graph.
#pragma once

#include "platform/VideoCanvas.h"

#include <QObject>
#include <QSGSimpleTextureNode>

#include <memory>

class QQuickWindow;

namespace zeph {

class VideoTap;

/// The node of a `VideoLayer`. Lives in the render thread, where it is made and destroyed with the
/// window's OpenGL context current.
class VideoNode : public QObject, public QSGTransformNode {
    Q_OBJECT

public:
    VideoNode(QQuickWindow *window, std::unique_ptr<VideoCanvas> canvas);

    const VideoCanvas &canvas() const { return *m_canvas; }

    struct Geometry {
        QSizeF layer; ///< What is seen.
        QSizeF picture; ///< The whole picture, of which the layer shows the middle.
        double devicePixelRatio;
        int rotation; ///< Degrees clockwise, a multiple of 90, by which the engine's is to be
                      ///< turned.
        bool isOnPixels; ///< The layer's pixels lie on the screen's.
    };
    void setGeometry(const Geometry &geometry);

    /// While it is not shown nothing is seen; the canvas is drawn on all the same.
    void setPictureShown(bool shown);

    /// Who is told of pictures and gets copies of them. May be null.
    void setTap(std::shared_ptr<VideoTap> tap);

    /// Emits `newPictureDue` if there is one. If the last picture is to be drawn again, the next
    /// frame does that, whenever it comes, and the engine need not wait for it.
    void lookForNewPicture();

Q_SIGNALS:
    /// There may be something to draw. Emitted from any thread.
    void pictureDue();
    /// Emitted from the render thread.
    void newPictureDue();
    /// The tap holds a copy. Emitted from the render thread.
    void pictureCopied();

private:
    void resizeCanvas(QSize pixels);
    void drawPicture();
    void copyPicture();

    QQuickWindow *const m_window;
    const std::unique_ptr<VideoCanvas> m_canvas;
    QSGSimpleTextureNode m_picture;
    const int m_largestTexture;
    std::shared_ptr<VideoTap> m_tap;
    QSize m_pixels;
    int m_rotation = 0;
    bool m_redraw = false;
};

} // namespace zeph
