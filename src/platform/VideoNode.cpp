#include "platform/VideoNode.h"

#include "platform/VideoTap.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QQuickOpenGLUtils>
#include <QQuickWindow>
#include <QSGTexture>
#include <QTransform>

#include <algorithm>
#include <cmath>
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

int largestTexture()
{
    GLint size = 0;
    QOpenGLContext::currentContext()->functions()->glGetIntegerv(GL_MAX_TEXTURE_SIZE, &size);
    return size;
}

// A picture that is very long must be drawn smaller. The engine adds black bars where a canvas is
// not of the picture's shape: so the short side, where a pixel counts, is a whole number from the
// start.
QSize canvasSize(QSizeF pixels, int largest)
{
    const double longSide = std::max(pixels.width(), pixels.height());
    const double shortSide = std::min(pixels.width(), pixels.height());
    if (longSide > largest)
        pixels *= std::max(std::floor(shortSide * largest / longSide), 1.0) / shortSide;
    return pixels.toSize().boundedTo({ largest, largest }).expandedTo({ 1, 1 });
}

// The middle of a canvas, as much of it as `part` is of `whole`.
QRectF middle(QSize canvas, QSizeF part, QSizeF whole)
{
    const QSizeF size(canvas.width() * part.width() / whole.width(),
        canvas.height() * part.height() / whole.height());
    return { QPointF((canvas.width() - size.width()) / 2, (canvas.height() - size.height()) / 2),
        size };
}

} // namespace

VideoNode::VideoNode(QQuickWindow *window, std::unique_ptr<VideoCanvas> canvas)
    : m_window(window), m_canvas(std::move(canvas)), m_largestTexture(largestTexture())
{
    m_picture.setFlag(OwnedByParent, false);
    m_picture.setOwnsTexture(true);
    m_canvas->setUpdateCallback(
        [](void *node) { Q_EMIT static_cast<VideoNode *>(node)->pictureDue(); }, this);
    connect(m_window, &QQuickWindow::beforeRendering, this, &VideoNode::drawPicture,
        Qt::DirectConnection);
}

void VideoNode::setGeometry(const Geometry &geometry)
{
    const bool sideways = geometry.rotation % 180 != 0;
    const QSizeF layer = sideways ? geometry.layer.transposed() : geometry.layer;
    const QSizeF drawn = sideways ? geometry.picture.transposed() : geometry.picture;
    const QSize pixels = canvasSize(drawn * geometry.devicePixelRatio, m_largestTexture);
    if (m_pixels != pixels)
        resizeCanvas(pixels);
    m_picture.setRect(QRectF(QPointF(), layer));
    m_picture.setSourceRect(middle(pixels, layer, drawn));
    m_picture.setFiltering(geometry.isOnPixels ? QSGTexture::Nearest : QSGTexture::Linear);
    m_picture.markDirty(DirtyMaterial);
    m_rotation = geometry.rotation;
    setMatrix(clockwise(m_rotation, geometry.layer));
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
    m_redraw = true;
}

void VideoNode::setTap(std::shared_ptr<VideoTap> tap)
{
    m_tap = std::move(tap);
}

void VideoNode::lookForNewPicture()
{
    const VideoCanvas::Update update = m_canvas->takeUpdate();
    if (update == VideoCanvas::Update::NewPicture) {
        Q_EMIT newPictureDue();
    } else if (update == VideoCanvas::Update::Redraw) {
        m_canvas->skip();
        m_redraw = true;
    }
}

void VideoNode::drawPicture()
{
    const VideoCanvas::Update update = m_canvas->takeUpdate();
    const bool draws = update != VideoCanvas::Update::None || m_redraw;
    m_redraw = false;
    if (m_tap && update == VideoCanvas::Update::NewPicture)
        m_tap->pictureShown();
    const bool copies = m_tap && m_tap->isCopyDue();
    if (!draws && !copies)
        return;
    m_window->beginExternalCommands();
    QQuickOpenGLUtils::resetOpenGLState();
    if (draws)
        m_canvas->draw();
    if (copies)
        copyPicture();
    QQuickOpenGLUtils::resetOpenGLState();
    m_window->endExternalCommands();
}

void VideoNode::copyPicture()
{
    const bool sideways = m_rotation % 180 != 0;
    const QImage copy = m_canvas->copy(sideways ? m_tap->copySize.transposed() : m_tap->copySize);
    m_tap->putCopy(m_rotation == 0 ? copy : copy.transformed(QTransform().rotate(m_rotation)));
    Q_EMIT pictureCopied();
}

} // namespace zeph
