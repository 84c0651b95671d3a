// Drives a window as its user would: finds things by the names that a screen reader says, and
// clicks on them.
#pragma once

#include <QAccessible>
#include <QPointF>
#include <QString>
#include <QStringList>

class QQuickItem;
class QQuickWindow;

class Driver {
public:
    explicit Driver(QQuickWindow &window) : m_window(window) { }

    /// The visible item of this name; null when there is none.
    QQuickItem *find(const QString &name) const;
    bool shows(const QString &name) const { return find(name); }

    QAccessible::Role role(const QString &name) const;
    QAccessible::State state(const QString &name) const;
    /// It has a tool tip, and a screen reader says the same, as its name or as its description.
    bool saysToolTip(const QString &name) const;
    /// Of a slider.
    double value(const QString &name) const;
    /// Sets a slider as a screen reader does.
    void setValue(const QString &name, double value) const;

    /// The name of what the keys go to.
    QString focused() const;
    /// What the keys go to, one after the other, as the Tab key goes round.
    QStringList tabOrder() const;

    /// In the window's coordinates. 0…1 of the item's size from its left and top.
    QPointF pointIn(const QString &name, double x = 0.5, double y = 0.5) const;
    void click(const QString &name) const;

    static QString nameOf(const QObject *object);

private:
    QQuickWindow &m_window;
};
