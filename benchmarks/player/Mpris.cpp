#include "Mpris.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>

#include <chrono>
#include <thread>

Mpris::Mpris(int process)
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (m_service.isEmpty() && std::chrono::steady_clock::now() < deadline) {
        const QStringList names = m_bus.interface()->registeredServiceNames();
        for (const QString &name : names) {
            if (name.startsWith(QLatin1String("org.mpris.MediaPlayer2."))
                && m_bus.interface()->servicePid(name).value() == uint(process))
                m_service = name;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

void Mpris::open(const std::string &address) const
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(m_service, QStringLiteral("/org/mpris/MediaPlayer2"),
            QStringLiteral("org.mpris.MediaPlayer2.Player"), QStringLiteral("OpenUri"));
    message << QString::fromStdString(address);
    m_bus.send(message);
}
