// Shows that something goes on, for an unknown time.
#pragma once

#include "platform/Delay.h"

#include <QColor>
#include <QQmlEngine>
#include <QQuickPaintedItem>

namespace zeph {

/// A ring of spokes, of which the brightest goes round while the item is seen. It goes in steps,
/// rather than with each frame of the screen: each step has the whole window drawn again, and where
/// there is no GPU nothing else holds frames back.
/// It has no meaning for a screen reader: what goes on has to be said next to it.
/// Main thread only, apart from the scene graph's own calls.
class ActivityIndicator : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)

public:
    static constexpr int spokeCount = 8;

    explicit ActivityIndicator(QQuickItem *parent = nullptr);

    QColor color() const { return m_color; }
    void setColor(const QColor &color);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void colorChanged();

protected:
    void itemChange(ItemChange change, const ItemChangeData &data) override;

private:
    void goOnWhileSeen();
    void step();

    QColor m_color = Qt::black;
    int m_brightestSpoke = 0; ///< From the one at the top, clockwise.
    Delay m_nextStep;
};

} // namespace zeph
