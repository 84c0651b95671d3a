#include "support/Driver.h"

#include "support/FrameCount.h"
#include "support/Patience.h"

#include <QQmlEngine>
#include <QQmlProperty>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

namespace {

QQuickItem *findIn(QQuickItem *item, const QString &name)
{
    if (!item->isVisible() || item->opacity() == 0)
        return nullptr;
    if (Driver::nameOf(item) == name)
        return item;
    const QList<QQuickItem *> children = item->childItems();
    for (QQuickItem *child : children) {
        if (QQuickItem *found = findIn(child, name))
            return found;
    }
    return nullptr;
}

QAccessibleInterface &accessible(const QObject *object)
{
    return *QAccessible::queryAccessibleInterface(const_cast<QObject *>(object));
}

} // namespace

QQuickItem *Driver::find(const QString &name) const
{
    return findIn(m_window.contentItem(), name);
}

QAccessible::Role Driver::role(const QString &name) const
{
    return accessible(find(name)).role();
}

QAccessible::State Driver::state(const QString &name) const
{
    return accessible(find(name)).state();
}

bool Driver::saysToolTip(const QString &name) const
{
    QQuickItem *item = find(name);
    const QString tip =
        QQmlProperty(item, QStringLiteral("ToolTip.text"), qmlContext(&m_window)).read().toString();
    const QAccessibleInterface &said = accessible(item);
    return !tip.isEmpty()
        && (tip == said.text(QAccessible::Name) || tip == said.text(QAccessible::Description));
}

double Driver::value(const QString &name) const
{
    return accessible(find(name)).valueInterface()->currentValue().toDouble();
}

void Driver::setValue(const QString &name, double value) const
{
    accessible(find(name)).valueInterface()->setCurrentValue(value);
}

QString Driver::focused() const
{
    return nameOf(m_window.activeFocusItem());
}

QStringList Driver::tabOrder() const
{
    QStringList names;
    for (;;) {
        QTest::keyClick(&m_window, Qt::Key_Tab);
        const QString name = focused();
        if (names.contains(name) || name.isEmpty())
            return names;
        names << name;
    }
}

QPointF Driver::pointIn(const QString &name, double x, double y) const
{
    const QQuickItem *item = find(name);
    return item->mapToScene({ x * item->width(), y * item->height() });
}

void Driver::click(const QString &name) const
{
    // What has just come may still move: a user clicks on it once it does not.
    QPointF point;
    do {
        point = pointIn(name);
        const FrameCount frames(m_window);
        m_window.update();
        if (!frames.waitForNext())
            qFatal("The window draws nothing");
    } while (pointIn(name) != point);
    QTest::mouseClick(&m_window, Qt::LeftButton, {}, point.toPoint());
}

QString Driver::nameOf(const QObject *object)
{
    auto *found =
        object ? QAccessible::queryAccessibleInterface(const_cast<QObject *>(object)) : nullptr;
    return found ? found->text(QAccessible::Name) : QString();
}
