// Tells what grows from what only goes up and down.
#pragma once

#include <QList>
#include <QPointF>

/// How a figure changes once it has settled, which it has a sixth of the time after the start.
struct Growth {
    double first = 0; ///< The median of the second sixth of the time.
    double last = 0; ///< The median of the last sixth.
    double trend = 0; ///< By how much the straight line rises that fits best what has settled.

    /// Whether both the medians and the line rise by at most this part, or at most this amount.
    bool isFlat(double part, double amount) const;
};

/// `points` hold a time (x) and a figure (y) each, in the order of time, from 0 to `duration`.
Growth growthOf(const QList<QPointF> &points, double duration);
