#include "library/LogoImage.h"

#include <QQuickWindow>
#include <QSGImageNode>

#include <cmath>
#include <utility>

namespace zeph {

LogoImage::LogoImage(QQuickItem *parent) : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

LogoImage::~LogoImage() = default;

void LogoImage::setLoader(ImageLoader *loader)
{
    if (std::exchange(m_loader, QPointer(loader)) == loader)
        return;
    reload();
    Q_EMIT loaderChanged();
}

void LogoImage::setUrl(const QUrl &url)
{
    if (std::exchange(m_url, url) == url)
        return;
    setImage({});
    reload();
    Q_EMIT urlChanged();
}

void LogoImage::setDelay(int milliseconds)
{
    const std::chrono::milliseconds delay(milliseconds);
    if (std::exchange(m_delay, delay) != delay)
        Q_EMIT delayChanged();
}

void LogoImage::componentComplete()
{
    QQuickItem::componentComplete();
    reload();
}

void LogoImage::itemChange(ItemChange change, const ItemChangeData &value)
{
    QQuickItem::itemChange(change, value);
    if (change == ItemVisibleHasChanged || change == ItemSceneChange
        || change == ItemDevicePixelRatioHasChanged)
        reload();
}

void LogoImage::geometryChange(const QRectF &geometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(geometry, oldGeometry);
    if (geometry.size() != oldGeometry.size())
        reload();
}

bool LogoImage::isNeeded() const
{
    return m_loader && !m_url.isEmpty() && isComponentComplete() && isVisible() && window()
        && !neededPixels().isEmpty();
}

QSize LogoImage::neededPixels() const
{
    return (size() * window()->effectiveDevicePixelRatio()).toSize();
}

void LogoImage::reload()
{
    m_start.cancel();
    m_request = nullptr;
    if (!isNeeded())
        return;
    if (m_url.isLocalFile() || m_loader->remembers(m_url, neededPixels()))
        request();
    else
        m_start.start(m_delay, [this] { request(); });
}

void LogoImage::request()
{
    m_request = std::make_unique<ImageRequest>(*m_loader, m_url, neededPixels());
    if (m_request->isFinished())
        takeImage();
    else
        connect(m_request.get(), &ImageRequest::finished, this, &LogoImage::takeImage);
}

void LogoImage::takeImage()
{
    setImage(m_request->image());
}

void LogoImage::setImage(const QImage &image)
{
    const bool had = hasImage();
    m_image = image;
    m_isNewImage = true;
    update();
    if (hasImage() != had)
        Q_EMIT hasImageChanged();
}

QSGNode *LogoImage::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    auto *node = static_cast<QSGImageNode *>(oldNode);
    if (m_image.isNull()) {
        delete node;
        return nullptr;
    }
    if (!node) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
        node->setFiltering(QSGTexture::Linear);
        m_isNewImage = true;
    }
    if (std::exchange(m_isNewImage, false))
        node->setTexture(window()->createTextureFromImage(m_image));
    // On whole pixels, so that its edges are sharp.
    const double ratio = window()->effectiveDevicePixelRatio();
    const QSize pixels =
        m_image.size().scaled(neededPixels(), Qt::KeepAspectRatio).expandedTo({ 1, 1 });
    const QSizeF drawn = QSizeF(pixels) / ratio;
    const auto snapped = [ratio](double position) { return std::round(position * ratio) / ratio; };
    node->setRect(
        QRectF({ snapped((width() - drawn.width()) / 2), snapped((height() - drawn.height()) / 2) },
            drawn));
    return node;
}

} // namespace zeph
