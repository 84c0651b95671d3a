// The bus on which programs show their accessibility trees.
#pragma once

#include "support/PrivateBus.h"

/// Belongs to a session bus of its own, on which assistive technology is in use: programs that are
/// started from now on show their trees. To be made before anything uses a session bus.
class AccessibilityBus {
public:
    AccessibilityBus();
    ~AccessibilityBus();

    const QDBusConnection &connection() const { return m_connection; }
    PrivateBus &sessionBus() { return m_sessionBus; }

    /// The bus name of the program; empty until it shows its tree.
    QString serviceOf(qint64 processId) const;

private:
    static QDBusConnection connect(const QDBusConnection &session);

    PrivateBus m_sessionBus;
    QDBusConnection m_connection;
};
