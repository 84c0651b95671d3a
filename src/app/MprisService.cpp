#include "app/MprisService.h"

#include "app/MprisPlayer.h"
#include "app/MprisRoot.h"
#include "library/ContentView.h"
#include "platform/SessionBus.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>

namespace zeph {

namespace {

const QString objectPath = QStringLiteral("/org/mpris/MediaPlayer2");
const QString rootInterface = QStringLiteral("org.mpris.MediaPlayer2");
const QString playerInterface = QStringLiteral("org.mpris.MediaPlayer2.Player");

/// Several players may run; each has a name of its own.
QString registerName(QDBusConnection &bus)
{
    const QString name = rootInterface + QStringLiteral(".zeph_player");
    const QString own =
        name + QStringLiteral(".instance%1").arg(QCoreApplication::applicationPid());
    for (const QString &candidate : { name, own }) {
        if (bus.registerService(candidate))
            return candidate;
    }
    return {};
}

} // namespace

MprisService::MprisService(ContentView &view, QObject *parent) : QObject(parent), m_view(view)
{
    connect(view.model(), &PlayerModel::isPlayingChanged, this, &MprisService::offer,
        Qt::SingleShotConnection);
}

MprisService::~MprisService()
{
    if (!m_name.isEmpty())
        QDBusConnection::sessionBus().unregisterService(m_name);
}

void MprisService::offer()
{
    if (!hasSessionBus())
        return;
    QDBusConnection bus = QDBusConnection::sessionBus();
    auto *root = new MprisRoot(m_view, this);
    new MprisPlayer(
        m_view, [this](const QVariantMap &values) { tell(playerInterface, values); }, this);
    connect(&m_view, &ContentView::isFullScreenChanged, this, [this, root] {
        tell(rootInterface, { { QStringLiteral("Fullscreen"), root->isFullScreen() } });
    });
    bus.registerObject(objectPath, this);
    m_name = registerName(bus);
}

void MprisService::tell(const QString &interface, const QVariantMap &values) const
{
    QDBusMessage message = QDBusMessage::createSignal(objectPath,
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("PropertiesChanged"));
    QDBusConnection::sessionBus().send(message << interface << values << QStringList());
}

} // namespace zeph
