#include "platform/DesktopAppearance.h"

#include "platform/SessionBus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QGuiApplication>

namespace zeph {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colorScheme = QStringLiteral("color-scheme");

bool isDark(const QPalette &palette)
{
    return palette.window().color().lightness() < palette.windowText().color().lightness();
}

QPalette darkPalette()
{
    QPalette palette(QColor(0x32, 0x32, 0x35), QColor(0x2b, 0x2b, 0x2e));
    const QColor text(0xf2, 0xf2, 0xf3);
    for (const auto role : { QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
             QPalette::ToolTipText, QPalette::HighlightedText, QPalette::BrightText })
        palette.setColor(role, text);
    palette.setColor(QPalette::Base, QColor(0x1e, 0x1e, 0x20));
    palette.setColor(QPalette::AlternateBase, QColor(0x26, 0x26, 0x28));
    palette.setColor(QPalette::ToolTipBase, QColor(0x3c, 0x3c, 0x40));
    palette.setColor(QPalette::Light, QColor(0x6c, 0x6c, 0x72));
    palette.setColor(QPalette::Midlight, QColor(0x50, 0x50, 0x55));
    palette.setColor(QPalette::Mid, QColor(0x46, 0x46, 0x4a));
    palette.setColor(QPalette::Dark, QColor(0x1a, 0x1a, 0x1c));
    palette.setColor(QPalette::Shadow, Qt::black);
    palette.setColor(QPalette::Highlight, QColor(0x3d, 0x7e, 0xd6));
    palette.setColor(QPalette::Link, QColor(0x7a, 0xb0, 0xf5));
    palette.setColor(QPalette::PlaceholderText, QColor(0xf2, 0xf2, 0xf3, 0x80));
    for (const auto role : { QPalette::WindowText, QPalette::Text, QPalette::ButtonText })
        palette.setColor(QPalette::Disabled, role, QColor(0xf2, 0xf2, 0xf3, 0x70));
    return palette;
}

} // namespace

DesktopAppearance::DesktopAppearance(QObject *parent)
    : QObject(parent), m_ownPalette(QGuiApplication::palette())
{
}

void DesktopAppearance::follow()
{
    if (!hasSessionBus() || isDark(m_ownPalette))
        return;
    // From whoever it is that has the path: the portal may start, or start again, later.
    QDBusConnection::sessionBus().connect(
        {}, path, interface, QStringLiteral("SettingChanged"), this, SLOT(ask()));
    ask();
}

void DesktopAppearance::ask()
{
    QDBusMessage question =
        QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"));
    question << appearance << colorScheme;
    auto *watcher =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        if (!watcher->isError())
            take(watcher->reply().arguments().value(0));
    });
}

void DesktopAppearance::take(QVariant answer)
{
    // The portal wraps the value more than once.
    while (answer.metaType() == QMetaType::fromType<QDBusVariant>())
        answer = answer.value<QDBusVariant>().variant();
    setColorScheme(answer.toUInt());
}

void DesktopAppearance::setColorScheme(uint scheme)
{
    constexpr uint prefersDark = 1;
    QGuiApplication::setPalette(scheme == prefersDark ? darkPalette() : m_ownPalette);
}

} // namespace zeph
