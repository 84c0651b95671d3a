#include "platform/VideoNode.h"

#include <QQuickOpenGLUtils>
#include <QQuickWindow>
#include <QSGTexture>

#include <utility>

namespace zeph {

VideoNode::VideoNode(QQuickWindow *window, std::unique_ptr<VideoCanvas> canvas)
    : m_window(window)
    , m_canvas(std::move(canvas))
{
    setOwnsTexture(true);
    m_canvas->setUpdateCallback(
        [](void *node) { Q_EMIT static_cast<VideoNode *>(node)->pictureDue(); }, this);
    connect(m_window, &QQuickWindow::beforeRendering, this, &VideoNode::drawPicture,
            Qt::DirectConnection);
}

void VideoNode::setGeometry(const QRectF &rect, double devicePixelRatio)
{
    const QSize pixels = (rect.size() * devicePixelRatio).toSize().expandedTo({ 1, 1 });
    if (m_pixels != pixels)
        resizeCanvas(pixels);
    setRect(rect);
    markDirty(DirtyMaterial);
}

void VideoNode::resizeCanvas(QSize pixels)
{
    m_pixels = pixels;
    m_canvas->resize(pixels);
    // Without alpha: blending a picture that covers everything is half the cost of drawing it
    // where there is no GPU.
    setTexture(QNativeInterface::QSGOpenGLTexture::fromNative(m_canvas->texture(), m_window, pixels));
    setFiltering(QSGTexture::Nearest);
    m_redraw = true;
}

void VideoNode::drawPicture()
{
    if (!m_canvas->takeUpdate() && !m_redraw)
        return;
    m_redraw = false;
    m_window->beginExternalCommands();
    QQuickOpenGLUtils::resetOpenGLState();
    m_canvas->draw();
    QQuickOpenGLUtils::resetOpenGLState();
    m_window->endExternalCommands();
}

} // namespace zeph
