// Numbers that were calculated, compared with what they have to be.
#pragma once

#include <QDebug>
#include <QRectF>

#include <cmath>

/// By how much such numbers may differ.
inline constexpr double precision = 1e-9;

/// Whether they differ by no more. Prints both when they do.
inline bool isSame(double actual, double expected)
{
    if (std::abs(actual - expected) <= precision)
        return true;
    qWarning() << "actual" << actual << "expected" << expected;
    return false;
}

/// The same of place and size.
inline bool isSame(const QRectF &actual, const QRectF &expected)
{
    const auto near = [](double a, double b) { return std::abs(a - b) <= precision; };
    if (near(actual.x(), expected.x()) && near(actual.y(), expected.y())
        && near(actual.width(), expected.width()) && near(actual.height(), expected.height()))
        return true;
    qWarning() << "actual" << actual << "expected" << expected;
    return false;
}
