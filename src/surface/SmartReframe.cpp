#include "surface/SmartReframe.h"

#include <algorithm>

namespace zeph {

namespace {

double area(const QRectF &face)
{
    return face.width() * face.height();
}

} // namespace

std::optional<QRectF> largestFace(const QList<QRectF> &faces)
{
    const auto largest = std::ranges::max_element(
        faces, [](const QRectF &a, const QRectF &b) { return area(a) < area(b); });
    if (largest == faces.end())
        return std::nullopt;
    return *largest;
}

double targetPan(const std::optional<QRectF> &face)
{
    if (!face)
        return 0;
    const double middle = face->x() + face->width() / 2;
    return std::clamp((0.5 - middle) * 2, -1.0, 1.0);
}

double easedPan(double pan, double target)
{
    constexpr double easing = 0.35;
    return pan + (target - pan) * easing;
}

} // namespace zeph
