#include "surface/PlayerLayerGeometry.h"

#include <algorithm>
#include <numbers>

namespace zeph {

namespace {

bool showsAColumn(PortraitDisplayMode mode)
{
    return mode != PortraitDisplayMode::Normal;
}

bool isPanned(PortraitDisplayMode mode)
{
    return mode == PortraitDisplayMode::Manual || mode == PortraitDisplayMode::Smart;
}

bool isEnlarged(PortraitDisplayMode mode)
{
    return mode == PortraitDisplayMode::Fill || isPanned(mode);
}

// Turned about its middle, which is the crop's, so that it fills the crop.
QRectF turnedPlayer(QSizeF crop)
{
    return { crop.width() * 0.5 - crop.height() * 0.5, crop.height() * 0.5 - crop.width() * 0.5,
        crop.height(), crop.width() };
}

} // namespace

QRectF cropRectangle(PortraitDisplayMode mode, const QRectF &bounds)
{
    if (!showsAColumn(mode))
        return bounds;
    const double width = bounds.height() * 9 * 0.0625;
    const double height = bounds.height();
    return { (bounds.width() - width) * 0.5, (bounds.height() - height) * 0.5, width, height };
}

QRectF pannedVideoRectangle(QSizeF column, QSizeF presentationSize, double pan)
{
    // A picture counts as no narrower than this, or it would be of unlimited height.
    constexpr double lowestAspect = 0.01;
    const double columnAspect =
        column.height() > 1.0 ? column.width() / column.height() : column.width();
    const double aspect = presentationSize.width() / presentationSize.height();
    if (columnAspect < aspect) {
        const double width = aspect * column.height();
        const double overflow = std::max(width - column.width(), 0.0);
        return { pan * overflow * 0.5 - overflow * 0.5, 0, width, column.height() };
    }
    const double height = column.width() / std::max(aspect, lowestAspect);
    return { 0, -(height - column.height()) * 0.5, column.width(), height };
}

QRectF enlarged(const QRectF &rectangle)
{
    constexpr double growth = 1.13 - 1;
    return { rectangle.x() - rectangle.width() * growth * 0.5,
        rectangle.y() - rectangle.height() * growth * 0.5,
        rectangle.width() * growth + rectangle.width(),
        rectangle.height() * growth + rectangle.height() };
}

PlayerLayerGeometry playerLayerGeometry(
    PortraitDisplayMode mode, const QRectF &bounds, QSizeF presentationSize, double pan)
{
    PlayerLayerGeometry geometry;
    geometry.crop = cropRectangle(mode, bounds);
    geometry.masksToBounds = showsAColumn(mode);
    const QSizeF crop = geometry.crop.size();
    if (mode == PortraitDisplayMode::Rotate) {
        geometry.player = turnedPlayer(crop);
        geometry.rotation = -std::numbers::pi / 2;
        return geometry;
    }
    const bool sizeIsKnown = presentationSize.width() > 0 && presentationSize.height() > 0;
    geometry.player = isPanned(mode) && sizeIsKnown
        ? pannedVideoRectangle(crop, presentationSize, pan)
        : QRectF(QPointF(0, 0), crop);
    if (isEnlarged(mode))
        geometry.player = enlarged(geometry.player);
    return geometry;
}

} // namespace zeph
