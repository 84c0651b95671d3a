// A running player, told over the session bus what to play.
#pragma once

#include <QDBusConnection>

#include <string>

class Mpris {
public:
    /// Waits until this process has put a player on the bus.
    explicit Mpris(int process);

    /// Does not wait for an answer.
    void open(const std::string &address) const;

private:
    QDBusConnection m_bus = QDBusConnection::sessionBus();
    QString m_service;
};
