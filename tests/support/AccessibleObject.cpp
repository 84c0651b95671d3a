#include "support/AccessibleObject.h"

#include "support/Patience.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusVariant>

namespace {

const QString accessible = QStringLiteral("org.a11y.atspi.Accessible");
const QString action = QStringLiteral("org.a11y.atspi.Action");
const QString component = QStringLiteral("org.a11y.atspi.Component");
const QString editableText = QStringLiteral("org.a11y.atspi.EditableText");
const QString properties = QStringLiteral("org.freedesktop.DBus.Properties");
const QString textInterface = QStringLiteral("org.a11y.atspi.Text");
const QString valueInterface = QStringLiteral("org.a11y.atspi.Value");

constexpr uint ofTheScreen = 0; ///< Coordinates.

} // namespace

AccessibleObject::AccessibleObject(
    const QDBusConnection &bus, const QString &service, const QString &path)
    : m_bus(bus), m_service(service), m_path(path)
{
}

QString AccessibleObject::name() const
{
    return property(accessible, QStringLiteral("Name")).toString();
}

QString AccessibleObject::description() const
{
    return property(accessible, QStringLiteral("Description")).toString();
}

AccessibleObject::Role AccessibleObject::role() const
{
    // Qt 6.8 has another role for buttons that open a menu, Qt 6.4 has not.
    constexpr uint menuButton = 129;
    const uint role = call(accessible, QStringLiteral("GetRole")).value(0).toUInt();
    return role == menuButton ? Role::Button : Role(role);
}

bool AccessibleObject::has(State state) const
{
    const auto words =
        qdbus_cast<QList<uint>>(call(accessible, QStringLiteral("GetState")).value(0));
    return words.value(int(state) / 32) >> (int(state) % 32) & 1;
}

QList<AccessibleObject> AccessibleObject::children() const
{
    QList<AccessibleObject> children;
    const QVariantList answer = call(accessible, QStringLiteral("GetChildren"));
    if (answer.isEmpty())
        return children;
    const auto list = answer.constFirst().value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        QString service;
        QDBusObjectPath path;
        list.beginStructure();
        list >> service >> path;
        list.endStructure();
        children.append({ m_bus, service, path.path() });
    }
    list.endArray();
    return children;
}

QRect AccessibleObject::rectangle() const
{
    const QVariantList answer = call(component, QStringLiteral("GetExtents"), { ofTheScreen });
    if (answer.isEmpty())
        return {};
    const auto numbers = answer.constFirst().value<QDBusArgument>();
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    numbers.beginStructure();
    numbers >> x >> y >> width >> height;
    numbers.endStructure();
    return { x, y, width, height };
}

bool AccessibleObject::press() const
{
    const int count = property(action, QStringLiteral("NActions")).toInt();
    for (int index = 0; index < count; ++index) {
        if (call(action, QStringLiteral("GetName"), { index }).value(0) == QStringLiteral("Press"))
            return m_bus.send(message(action, QStringLiteral("DoAction"), { index }));
    }
    return false;
}

bool AccessibleObject::focus() const
{
    return perform(component, QStringLiteral("GrabFocus"), {});
}

double AccessibleObject::value() const
{
    return property(valueInterface, QStringLiteral("CurrentValue")).toDouble();
}

double AccessibleObject::smallestValue() const
{
    return property(valueInterface, QStringLiteral("MinimumValue")).toDouble();
}

double AccessibleObject::largestValue() const
{
    return property(valueInterface, QStringLiteral("MaximumValue")).toDouble();
}

bool AccessibleObject::setValue(double value) const
{
    bool succeeded = false;
    call(properties, QStringLiteral("Set"),
        { valueInterface, QStringLiteral("CurrentValue"),
            QVariant::fromValue(QDBusVariant(value)) },
        &succeeded);
    return succeeded;
}

QString AccessibleObject::text() const
{
    return call(textInterface, QStringLiteral("GetText"), { 0, -1 }).value(0).toString();
}

bool AccessibleObject::setText(const QString &text) const
{
    return perform(editableText, QStringLiteral("SetTextContents"), { text });
}

QDBusMessage AccessibleObject::message(
    const QString &interface, const QString &method, const QVariantList &arguments) const
{
    QDBusMessage message = QDBusMessage::createMethodCall(m_service, m_path, interface, method);
    message.setArguments(arguments);
    return message;
}

QVariantList AccessibleObject::call(const QString &interface, const QString &method,
    const QVariantList &arguments, bool *succeeded) const
{
    if (m_service.isEmpty())
        return {};
    const QDBusMessage reply =
        m_bus.call(message(interface, method, arguments), QDBus::Block, patience);
    const bool answered = reply.type() == QDBusMessage::ReplyMessage;
    if (succeeded)
        *succeeded = answered;
    return answered ? reply.arguments() : QVariantList();
}

QVariant AccessibleObject::property(const QString &interface, const QString &name) const
{
    return call(properties, QStringLiteral("Get"), { interface, name })
        .value(0)
        .value<QDBusVariant>()
        .variant();
}

bool AccessibleObject::perform(
    const QString &interface, const QString &method, const QVariantList &arguments) const
{
    return call(interface, method, arguments).value(0).toBool();
}
