#include "surface/SystemImage.h"

#include <QFile>
#include <QPainter>

#include <utility>

namespace zeph {

namespace {

// In the units of the drawings, which are 56 wide with lines of 3.8.
constexpr double semiboldRim = 1.9;
constexpr double ultraLightRim = 2.3;

/// The drawing with attributes for all of its shapes.
std::unique_ptr<QSvgRenderer> drawing(QByteArray svg, const QByteArray &attributes = {})
{
    constexpr QByteArrayView root = "<svg ";
    svg.insert(svg.indexOf(root) + root.size(), attributes);
    return std::make_unique<QSvgRenderer>(svg);
}

QByteArray rim(double width)
{
    return QByteArrayLiteral("stroke=\"black\" stroke-linejoin=\"round\" stroke-width=\"")
        + QByteArray::number(width) + QByteArrayLiteral("\" ");
}

} // namespace

SystemImage::SystemImage(QQuickItem *parent) : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
}

SystemImage::~SystemImage() = default;

void SystemImage::setName(const QString &name)
{
    if (std::exchange(m_name, name) == name)
        return;
    load();
    Q_EMIT nameChanged();
}

void SystemImage::setColor(const QColor &color)
{
    if (std::exchange(m_color, color) == color)
        return;
    update();
    Q_EMIT colorChanged();
}

void SystemImage::setPointSize(double pointSize)
{
    if (std::exchange(m_pointSize, pointSize) == pointSize)
        return;
    constexpr double lineHeight = 1.25;
    setImplicitSize(pointSize * lineHeight, pointSize * lineHeight);
    Q_EMIT pointSizeChanged();
}

void SystemImage::setWeight(Weight weight)
{
    if (std::exchange(m_weight, weight) == weight)
        return;
    load();
    Q_EMIT weightChanged();
}

void SystemImage::load()
{
    m_shape = nullptr;
    m_rim = nullptr;
    update();
    if (m_name.isEmpty())
        return;
    QFile file(QStringLiteral(":/zeph/symbols/%1.svg").arg(m_name));
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning("There is no symbol named \"%s\"", qUtf8Printable(m_name));
        return;
    }
    const QByteArray svg = file.readAll();
    m_shape = drawing(svg, m_weight == Weight::Semibold ? rim(semiboldRim) : QByteArray());
    if (m_weight == Weight::UltraLight)
        m_rim = drawing(svg, rim(ultraLightRim) + QByteArrayLiteral("fill=\"none\" "));
}

void SystemImage::paint(QPainter *painter)
{
    if (!m_shape)
        return;
    const QRectF rect = drawingRect();
    m_shape->render(painter, rect);
    if (m_rim) {
        painter->setCompositionMode(QPainter::CompositionMode_DestinationOut);
        m_rim->render(painter, rect);
    }
    painter->setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter->fillRect(boundingRect(), m_color);
}

/// The largest square in the middle.
QRectF SystemImage::drawingRect() const
{
    const double side = std::min(width(), height());
    return { (width() - side) / 2, (height() - side) / 2, side, side };
}

} // namespace zeph
