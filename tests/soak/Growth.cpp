#include "Growth.h"

#include <algorithm>

namespace {

QList<QPointF> pointsWithin(const QList<QPointF> &points, double from, double to)
{
    QList<QPointF> within;
    std::copy_if(points.cbegin(), points.cend(), std::back_inserter(within),
        [=](const QPointF &point) { return point.x() >= from && point.x() <= to; });
    return within;
}

double median(const QList<QPointF> &points)
{
    if (points.isEmpty())
        return 0;
    QList<double> figures;
    for (const QPointF &point : points)
        figures << point.y();
    std::sort(figures.begin(), figures.end());
    const qsizetype middle = figures.size() / 2;
    return figures.size() % 2 != 0 ? figures[middle] : (figures[middle - 1] + figures[middle]) / 2;
}

/// By how much the line of the least squares rises for each unit of time.
double slope(const QList<QPointF> &points)
{
    QPointF mean;
    for (const QPointF &point : points)
        mean += point / static_cast<double>(points.size());
    double covariance = 0;
    double variance = 0;
    for (const QPointF &point : points) {
        const QPointF distance = point - mean;
        covariance += distance.x() * distance.y();
        variance += distance.x() * distance.x();
    }
    return variance > 0 ? covariance / variance : 0;
}

} // namespace

bool Growth::isFlat(double part, double amount) const
{
    const double allowance = std::max(part * first, amount);
    return last - first <= allowance && trend <= allowance;
}

Growth growthOf(const QList<QPointF> &points, double duration)
{
    const double sixth = duration / 6;
    return { median(pointsWithin(points, sixth, 2 * sixth)),
        median(pointsWithin(points, 5 * sixth, duration)),
        slope(pointsWithin(points, sixth, duration)) * 5 * sixth };
}
