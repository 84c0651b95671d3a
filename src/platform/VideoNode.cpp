#include "platform/VideoNode.h"

#include <QQuickOpenGLUtils>
#include <QQuickWindow>
#include <QSGTexture>

#include <utility>

namespace zeph {

namespace {

// Exact, so that pixels stay on pixels.
QMatrix4x4 clockwise(int rotation, QSizeF size)
{
    const auto width = float(size.width());
    const auto height = float(size.height());
    switch (rotation) {
    case 90:
        return { 0, -1, 0, width, 1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1 };
    case 180:
        return { -1, 0, 0, width, 0, -1, 0, height, 0, 0, 1, 0, 0, 0, 0, 1 };
    case 270:
        return { 0, 1, 0, 0, -1, 0, 0, height, 0, 0, 1, 0, 0, 0, 0, 1 };
    default:
        return {};
    }
}

} // namespace

VideoNode::VideoNode(QQuickWindow *window, std::unique_ptr<VideoCanvas> canvas)
    : m_window(window)
    , m_canvas(std::move(canvas))
{
    m_picture.setFlag(OwnedByParent, false);
    m_picture.setOwnsTexture(true);
    m_canvas->setUpdateCallback(
        [](void *node) { Q_EMIT static_cast<VideoNode *>(node)->pictureDue(); }, this);
    connect(m_window, &QQuickWindow::beforeRendering, this, &VideoNode::drawPicture,
            Qt::DirectConnection);
}

void VideoNode::setGeometry(QSizeF size, double devicePixelRatio, int rotation)
{
    const QSizeF drawn = rotation % 180 == 0 ? size : size.transposed();
    const QSize pixels = (drawn * devicePixelRatio).toSize().expandedTo({ 1, 1 });
    if (m_pixels != pixels)
        resizeCanvas(pixels);
    m_picture.setRect(QRectF(QPointF(), drawn));
    m_picture.markDirty(DirtyMaterial);
    setMatrix(clockwise(rotation, size));
}

void VideoNode::setPictureShown(bool shown)
{
    if (shown == (m_picture.parent() != nullptr))
        return;
    if (shown) {
        // What the canvas still holds is of the item before.
        m_redraw = true;
        appendChildNode(&m_picture);
    } else {
        removeChildNode(&m_picture);
    }
}

void VideoNode::resizeCanvas(QSize pixels)
{
    m_pixels = pixels;
    m_canvas->resize(pixels);
    // Without alpha: blending a picture that covers everything is half the cost of drawing it
    // where there is no GPU.
    m_picture.setTexture(
        QNativeInterface::QSGOpenGLTexture::fromNative(m_canvas->texture(), m_window, pixels));
    m_picture.setFiltering(QSGTexture::Nearest);
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
