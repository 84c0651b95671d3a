// How the portrait column follows faces, as plain arithmetic.
#pragma once

#include <QList>
#include <QRectF>

#include <optional>

namespace zeph {

/// By area; the first one in the list among those of equal area. Nothing when there is none.
std::optional<QRectF> largestFace(const QList<QRectF> &faces);

/// The pan that has the face in the middle, −1…1; 0 without a face. The face is given as parts of
/// the picture's width and height.
double targetPan(const std::optional<QRectF> &face);

/// One step from `pan` towards `target`. There is no distance too small for a step.
double easedPan(double pan, double target);

} // namespace zeph
