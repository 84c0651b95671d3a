#include "GridPicture.h"

#include "VideoWindow.h"

#include <algorithm>
#include <cmath>

using Mode = zeph::PortraitDisplayMode;

std::optional<QColor> GridPicture::colourAt(QPointF point, double border, double margin) const
{
    const double inside =
        std::min({ point.x(), size.width() - point.x(), point.y(), size.height() - point.y() });
    if (inside < -border)
        return Qt::black;
    if (inside < border)
        return {};
    if (isTurned)
        point = { point.y(), size.width() - point.x() };
    const auto isNearAnEdge = [&](double coordinate, double length) {
        const double within = std::fmod(coordinate, cell);
        return (within < margin && coordinate > margin)
            || (within > cell - margin && coordinate < length - margin);
    };
    const QSizeF stored = isTurned ? size.transposed() : size;
    if (isNearAnEdge(point.x(), stored.width()) || isNearAnEdge(point.y(), stored.height()))
        return {};
    const int i = int(point.x() / cell);
    const int j = int(point.y() / cell);
    const int bits = (3 * i * i + 5 * j * j + i * j + 7) % 97;
    return QColor(bits & 1 ? 255 : 0, bits & 2 ? 255 : 0, bits & 4 ? 255 : 0);
}

QRectF GridView::column() const
{
    if (mode == Mode::Normal)
        return { QPointF(0, 0), window };
    const double width = window.height() * 9 / 16;
    return { (window.width() - width) / 2, 0, width, window.height() };
}

double GridView::scale(const GridPicture &picture) const
{
    QSizeF area = column().size();
    if (mode == Mode::Rotate)
        area.transpose();
    const double across = area.width() / picture.size.width();
    const double down = area.height() / picture.size.height();
    if (mode == Mode::Normal)
        return std::min(across, down);
    return std::max(across, down) * (mode == Mode::Rotate ? 1 : 1.13);
}

QPointF GridView::inPicture(QPointF point, const GridPicture &picture) const
{
    const double pixels = scale(picture);
    QPointF middle = column().center();
    if (mode == Mode::Manual || mode == Mode::Smart) {
        const double overflow = picture.size.width() * pixels / 1.13 - column().width();
        middle.rx() += pan * std::max(overflow, 0.0) / 2;
    }
    QPointF offset = point - middle;
    // The picture's right is below, and its top on the right.
    if (mode == Mode::Rotate)
        offset = { offset.y(), -offset.x() };
    return offset / pixels + QPointF(picture.size.width(), picture.size.height()) / 2;
}

QString GridView::mismatch(const QImage &screenshot, const GridPicture &picture) const
{
    constexpr int tolerance = 12; // Of a colour, which video stores with less precision.
    constexpr double blurredBorder = 1.5; // Pixels of the screen.
    constexpr double ringing = 4; // Likewise, in which a cell shows in its neighbour.
    constexpr double mixing = 1.5; // Pixels of the picture, likewise.
    const double ratio = screenshot.width() / window.width();
    if (std::abs(screenshot.height() - window.height() * ratio) > 1)
        return QStringLiteral("the window is of another size");
    const QRectF seen = column() & QRectF(QPointF(0, 0), window);
    const double step = std::max(window.width(), window.height()) / 250;
    const double room = blurredBorder / ratio;
    const double pixels = scale(picture);
    int compared = 0;
    for (double y = 0.25; y < window.height(); y += step) {
        for (double x = 0.25; x < window.width(); x += step) {
            const QPoint pixel(int(x * ratio), int(y * ratio));
            const QPointF point((pixel.x() + 0.5) / ratio, (pixel.y() + 0.5) / ratio);
            std::optional<QColor> expected;
            if (seen.adjusted(room, room, -room, -room).contains(point)) {
                expected = picture.colourAt(inPicture(point, picture), room / pixels,
                    std::max(ringing / ratio / pixels, mixing));
            } else if (!seen.adjusted(-room, -room, room, room).contains(point)) {
                expected = Qt::black;
            }
            if (!expected)
                continue;
            const QColor actual = screenshot.pixelColor(pixel);
            if (!isNear(actual, *expected, tolerance)) {
                return QStringLiteral("%1 in place of %2 at %3, %4")
                    .arg(actual.name(), expected->name())
                    .arg(point.x())
                    .arg(point.y());
            }
            ++compared;
        }
    }
    if (compared < 500)
        return QStringLiteral("only %1 points compared").arg(compared);
    return {};
}
