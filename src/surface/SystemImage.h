// The one way to draw a symbol.
#pragma once

#include <QColor>
#include <QQmlEngine>
#include <QQuickPaintedItem>
#include <QSvgRenderer>

#include <memory>

namespace zeph {

/// Draws a symbol by its name, in one colour, with sharp edges at every size and scale. Tells of a
/// name that is none of those in CMakeLists.txt in a warning, and draws nothing. It has no meaning
/// for a screen reader: what it stands for has to be said by the control that it is on.
/// Main thread only, apart from the scene graph's own calls.
class SystemImage : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT

    /// For example "play.fill". Empty draws nothing.
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
    /// The size of the text that the symbol goes with, in the units of the scene. The item is as
    /// large as such a line of text is high, and its drawing as large as a capital.
    Q_PROPERTY(double pointSize READ pointSize WRITE setPointSize NOTIFY pointSizeChanged)
    Q_PROPERTY(Weight weight READ weight WRITE setWeight NOTIFY weightChanged)

public:
    enum class Weight {
        UltraLight,
        Regular,
        Semibold,
    };
    Q_ENUM(Weight)

    explicit SystemImage(QQuickItem *parent = nullptr);
    ~SystemImage() override;

    const QString &name() const { return m_name; }
    void setName(const QString &name);
    QColor color() const { return m_color; }
    void setColor(const QColor &color);
    double pointSize() const { return m_pointSize; }
    void setPointSize(double pointSize);
    Weight weight() const { return m_weight; }
    void setWeight(Weight weight);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void nameChanged();
    void colorChanged();
    void pointSizeChanged();
    void weightChanged();

private:
    using Drawing = std::unique_ptr<QSvgRenderer>;

    void load();
    QRectF drawingRect() const;

    QString m_name;
    QColor m_color = Qt::black;
    double m_pointSize = 0;
    Weight m_weight = Weight::Regular;
    Drawing m_shape; ///< Null when there is nothing to draw.
    Drawing m_rim; ///< What is taken off the shape to make its lines thinner; null when nothing is.
};

} // namespace zeph
