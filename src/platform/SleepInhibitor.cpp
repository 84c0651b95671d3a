#include "platform/SleepInhibitor.h"

#include "platform/SessionBus.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QVariantMap>

#include <utility>

namespace zeph {

namespace {

void tell(const QString &service, const QString &path, const QString &interface,
    const QString &method, const QVariantList &arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    QDBusConnection::sessionBus().send(message);
}

} // namespace

SleepInhibitor::SleepInhibitor(QString reason, QObject *parent)
    : QObject(parent), m_reason(std::move(reason))
{
}

void SleepInhibitor::setInhibiting(bool inhibiting)
{
    m_wanted = inhibiting;
    if (!m_wanted && m_release)
        std::exchange(m_release, {})();
    if (!m_wanted || m_release || !hasSessionBus() || std::exchange(m_asking, true))
        return;
    askPortal();
}

void SleepInhibitor::askPortal()
{
    const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
    constexpr uint suspend = 4;
    constexpr uint idle = 8;
    QDBusMessage request =
        QDBusMessage::createMethodCall(service, QStringLiteral("/org/freedesktop/portal/desktop"),
            QStringLiteral("org.freedesktop.portal.Inhibit"), QStringLiteral("Inhibit"));
    request << QString() << (suspend | idle)
            << QVariantMap { { QStringLiteral("reason"), m_reason } };
    const auto take = [this, service](const QDBusMessage &reply) {
        const auto handle = reply.arguments().value(0).value<QDBusObjectPath>();
        granted([service, handle] {
            tell(service, handle.path(), QStringLiteral("org.freedesktop.portal.Request"),
                QStringLiteral("Close"), {});
        });
    };
    send(request, take, [this] { askScreenSaver(); });
}

void SleepInhibitor::askScreenSaver()
{
    const QString service = QStringLiteral("org.freedesktop.ScreenSaver");
    const QString path = QStringLiteral("/org/freedesktop/ScreenSaver");
    QDBusMessage request =
        QDBusMessage::createMethodCall(service, path, service, QStringLiteral("Inhibit"));
    request << QCoreApplication::applicationName() << m_reason;
    const auto take = [this, service, path](const QDBusMessage &reply) {
        const QVariant cookie = reply.arguments().value(0);
        granted([service, path, cookie] {
            tell(service, path, service, QStringLiteral("UnInhibit"), { cookie });
        });
    };
    // Nobody else can be asked. The next time something plays there may be somebody.
    send(request, take, [this] { m_asking = false; });
}

void SleepInhibitor::send(const QDBusMessage &request,
    const std::function<void(const QDBusMessage &)> &granted, const std::function<void()> &refused)
{
    auto *watcher =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(request), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [=] {
        watcher->deleteLater();
        if (watcher->isError())
            refused();
        else
            granted(watcher->reply());
    });
}

void SleepInhibitor::granted(const Release &release)
{
    m_asking = false;
    m_release = release;
    setInhibiting(m_wanted);
}

} // namespace zeph
