// A session bus that only a test and what it starts are on.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QProcess>

class PrivateBus {
public:
    /// Becomes this process's session bus. To be made before anything uses one.
    PrivateBus();
    ~PrivateBus();

    /// Another program's connection, made anew.
    QDBusConnection connectAs(const QString &name) const;

    /// Calls a method and waits for the answer, while this program goes on with its work.
    static QDBusMessage call(const QDBusConnection &from, const QString &service,
        const QString &path, const QString &interface, const QString &method,
        const QVariantList &arguments = {});

private:
    QProcess m_daemon;
    QString m_address;
};
