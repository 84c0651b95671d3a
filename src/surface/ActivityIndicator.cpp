#include "surface/ActivityIndicator.h"

#include <QPainter>

#include <utility>

namespace zeph {

namespace {

using namespace std::chrono_literals;

constexpr auto timePerStep = 100ms;
constexpr double faintestOpacity = 0.2;

// In halves of the item's smaller side.
constexpr double spokeStart = 0.45;
constexpr double spokeEnd = 0.9;
constexpr double spokeWidth = 0.2;

} // namespace

ActivityIndicator::ActivityIndicator(QQuickItem *parent) : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
}

void ActivityIndicator::setColor(const QColor &color)
{
    if (std::exchange(m_color, color) == color)
        return;
    update();
    Q_EMIT colorChanged();
}

void ActivityIndicator::paint(QPainter *painter)
{
    constexpr double turn = 360;
    painter->translate(boundingRect().center());
    painter->scale(std::min(width(), height()) / 2, std::min(width(), height()) / 2);
    painter->rotate(m_brightestSpoke * turn / spokeCount);
    for (int age = 0; age < spokeCount; ++age) {
        QColor color = m_color;
        color.setAlphaF(
            float(color.alphaF() * (1 - age * (1 - faintestOpacity) / (spokeCount - 1))));
        painter->setPen(QPen(color, spokeWidth, Qt::SolidLine, Qt::RoundCap));
        painter->drawLine(QPointF(0, -spokeStart), QPointF(0, -spokeEnd));
        painter->rotate(-turn / spokeCount);
    }
}

void ActivityIndicator::itemChange(ItemChange change, const ItemChangeData &data)
{
    QQuickPaintedItem::itemChange(change, data);
    if (change == ItemSceneChange || change == ItemVisibleHasChanged)
        goOnWhileSeen();
}

void ActivityIndicator::goOnWhileSeen()
{
    if (window() && isVisible())
        m_nextStep.start(timePerStep, [this] { step(); });
    else
        m_nextStep.cancel();
}

void ActivityIndicator::step()
{
    m_brightestSpoke = (m_brightestSpoke + 1) % spokeCount;
    update();
    goOnWhileSeen();
}

} // namespace zeph
