#include "support/PrivateBus.h"

#include <QDBusPendingCallWatcher>
#include <QTest>

PrivateBus::PrivateBus()
{
    m_daemon.start(QStringLiteral("dbus-daemon"),
        { QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--nopidfile"),
            QStringLiteral("--print-address=1") });
    if (!m_daemon.waitForReadyRead(20000))
        qFatal("dbus-daemon does not start");
    m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    qputenv("DBUS_SESSION_BUS_ADDRESS", m_address.toUtf8());
}

PrivateBus::~PrivateBus()
{
    m_daemon.kill();
    m_daemon.waitForFinished();
}

QDBusConnection PrivateBus::connectAs(const QString &name) const
{
    return QDBusConnection::connectToBus(m_address, name);
}

QDBusMessage PrivateBus::call(const QDBusConnection &from, const QString &service,
    const QString &path, const QString &interface, const QString &method,
    const QVariantList &arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    const QDBusPendingCall call = from.asyncCall(message);
    return QTest::qWaitFor([&] { return call.isFinished(); }, 20000) ? call.reply() : message;
}
