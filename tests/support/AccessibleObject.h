// Something that another program shows, as assistive technology meets it.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QRect>
#include <QStringList>

/// A place in the accessibility tree of a program. What cannot be asked or done, because it is not
/// there or not any more, is empty or false. Asking waits for the answer of the other program.
class AccessibleObject {
public:
    /// Numbers as in the protocol, AT-SPI.
    enum class Role {
        Alert = 2,
        ComboBox = 11,
        Dialog = 16,
        Frame = 23,
        Label = 29,
        List = 31,
        ListItem = 32,
        Menu = 33,
        MenuBar = 34,
        MenuItem = 35,
        Panel = 39,
        PopupMenu = 41,
        ProgressBar = 42,
        Button = 43,
        RadioButton = 44,
        Slider = 51,
        TextField = 61,
        ToolBar = 63,
        Heading = 83,
    };
    enum class State {
        Checked = 4,
        Focused = 12,
        Showing = 25,
        Visible = 30,
    };

    /// Nothing.
    AccessibleObject() = default;
    AccessibleObject(const QDBusConnection &bus, const QString &service, const QString &path);

    explicit operator bool() const { return !m_service.isEmpty(); }
    const QString &service() const { return m_service; }

    QString name() const;
    QString description() const;
    Role role() const;
    bool has(State state) const;
    QList<AccessibleObject> children() const;
    /// In pixels of the screen.
    QRect rectangle() const;

    /// Does what a click would do. Does not wait until it is done: a panel that opens would have to
    /// close before.
    bool press() const;
    /// Gives it the keyboard.
    bool focus() const;

    /// Of a slider.
    double value() const;
    double smallestValue() const;
    double largestValue() const;
    bool setValue(double value) const;

    /// What stands in a field, or in any other text.
    QString text() const;
    bool setText(const QString &text) const;

private:
    QDBusMessage message(
        const QString &interface, const QString &method, const QVariantList &arguments) const;
    QVariantList call(const QString &interface, const QString &method,
        const QVariantList &arguments = {}, bool *succeeded = nullptr) const;
    QVariant property(const QString &interface, const QString &name) const;
    bool perform(
        const QString &interface, const QString &method, const QVariantList &arguments) const;

    QDBusConnection m_bus { QString() };
    QString m_service;
    QString m_path;
};
