// The clips whose picture is a grid of known colours, and where a display mode is to show them.
#pragma once

#include "surface/PortraitDisplayMode.h"

#include <QColor>
#include <QImage>
#include <QRectF>

/// One of the grid clips that tests/clips/make-clips makes.
struct GridPicture {
    QString clip;
    QSizeF size; ///< As it is meant to be seen.
    double cell; ///< Side of a cell, likewise.
    /// Turned clockwise by a quarter: the cells are numbered from the upper right, downwards.
    bool isTurned = false;

    /// Black outside the picture. Nothing where the picture's edge is nearer than `border`, or
    /// another cell nearer than `margin`.
    std::optional<QColor> colourAt(QPointF point, double border, double margin) const;
};

/// How a window is to show a picture.
struct GridView {
    QSizeF window;
    zeph::PortraitDisplayMode mode = zeph::PortraitDisplayMode::Normal;
    double pan = 0;

    /// Compares a screenshot of the window, whose pixels may be smaller than the window's units,
    /// with what it is to show. Answers with an empty text, or with what is wrong.
    QString mismatch(const QImage &screenshot, const GridPicture &picture) const;

private:
    /// In the window's coordinates.
    QRectF column() const;
    /// Pixels of the window for one of the picture.
    double scale(const GridPicture &picture) const;
    /// Of a point in the window's coordinates.
    QPointF inPicture(QPointF point, const GridPicture &picture) const;
};
