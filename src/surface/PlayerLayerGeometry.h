// Where the picture goes in each display mode, as plain arithmetic on rectangles.
#pragma once

#include "surface/PortraitDisplayMode.h"

#include <QRectF>
#include <QSizeF>

namespace zeph {

/// What a display mode makes of one view and one picture.
struct PlayerLayerGeometry {
    /// What of the view shows the picture, in the view's coordinates.
    QRectF crop;
    /// Whether the crop cuts the picture off.
    bool masksToBounds = false;
    /// The picture's rectangle before it is turned, in the crop's coordinates.
    QRectF player;
    /// Radians, about the middle of `player`, counter-clockwise as seen.
    double rotation = 0;
};

/// The part of the view that shows the picture: all of `bounds`, or a column of 9:16 in the middle
/// of a rectangle of their size at 0, 0.
QRectF cropRectangle(PortraitDisplayMode mode, const QRectF &bounds);

/// The picture as large as it must be to cover a column of that size, moved sideways by `pan`
/// (−1…1): 1 lays the left edges on each other, −1 the right edges. A picture that is no wider than
/// the column is only centred.
QRectF pannedVideoRectangle(QSizeF column, QSizeF presentationSize, double pan);

/// The rectangle grown by 13 % about its middle.
QRectF enlarged(const QRectF &rectangle);

/// All of it. `presentationSize` is the picture's, 0 by 0 while unknown.
PlayerLayerGeometry playerLayerGeometry(
    PortraitDisplayMode mode, const QRectF &bounds, QSizeF presentationSize, double pan);

} // namespace zeph
