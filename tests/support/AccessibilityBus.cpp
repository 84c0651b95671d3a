#include "support/AccessibilityBus.h"

#include "support/AccessibleObject.h"

#include <QDBusConnectionInterface>
#include <QDBusReply>
#include <QDBusVariant>

namespace {

const QString ownName = QStringLiteral("accessibility");
const QString launcher = QStringLiteral("org.a11y.Bus");
const QString launcherPath = QStringLiteral("/org/a11y/bus");

} // namespace

AccessibilityBus::AccessibilityBus()
    : m_connection(connect(m_sessionBus.connectAs(ownName + QStringLiteral(" session"))))
{
    if (!m_connection.isConnected())
        qFatal("The accessibility bus does not start; is at-spi2-core installed?");
}

AccessibilityBus::~AccessibilityBus()
{
    QDBusConnection::disconnectFromBus(ownName);
    QDBusConnection::disconnectFromBus(ownName + QStringLiteral(" session"));
}

QDBusConnection AccessibilityBus::connect(const QDBusConnection &session)
{
    PrivateBus::call(session, launcher, launcherPath,
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Set"),
        { QStringLiteral("org.a11y.Status"), QStringLiteral("IsEnabled"),
            QVariant::fromValue(QDBusVariant(true)) });
    const QDBusReply<QString> address =
        PrivateBus::call(session, launcher, launcherPath, launcher, QStringLiteral("GetAddress"));
    return QDBusConnection::connectToBus(address.value(), ownName);
}

QString AccessibilityBus::serviceOf(qint64 processId) const
{
    const AccessibleObject desktop(m_connection, QStringLiteral("org.a11y.atspi.Registry"),
        QStringLiteral("/org/a11y/atspi/accessible/root"));
    const QList<AccessibleObject> programs = desktop.children();
    for (const AccessibleObject &program : programs) {
        if (m_connection.interface()->servicePid(program.service()).value() == processId)
            return program.service();
    }
    return {};
}
