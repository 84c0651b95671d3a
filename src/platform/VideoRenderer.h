// Draws the engine's pictures into a texture of the scene graph.
#pragma once

#include "platform/MpvHandle.h"

#include <QObject>
#include <QOpenGLFramebufferObject>
#include <QSGSimpleTextureNode>

#include <memory>

class QQuickWindow;

namespace zeph {

/// The scene graph node of a `VideoLayer`. Lives in the render thread, where it is made and
/// destroyed with the window's OpenGL context current.
class VideoRenderer : public QObject, public QSGSimpleTextureNode {
    Q_OBJECT

public:
    VideoRenderer(QQuickWindow *window, std::shared_ptr<MpvHandle> engine);
    ~VideoRenderer() override;

    const std::shared_ptr<MpvHandle> &engine() const { return m_engine; }

    /// Where the picture stands, in the item's coordinates, and how many pixels a unit of them has.
    void setGeometry(const QRectF &rect, double devicePixelRatio);

Q_SIGNALS:
    /// There is a new picture to draw. Emitted from any thread.
    void frameReady();

private:
    void resizeTexture(QSize pixels);
    void drawFrame();

    QQuickWindow *const m_window;
    const std::shared_ptr<MpvHandle> m_engine;
    mpv_render_context *m_context = nullptr;
    std::unique_ptr<QOpenGLFramebufferObject> m_target;
    bool m_redraw = false;
};

} // namespace zeph
