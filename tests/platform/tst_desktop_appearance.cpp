// Dark and light, as the desktop's settings have it, over a real bus.
#include "platform/DesktopAppearance.h"
#include "support/EngineTest.h"
#include "support/PrivateBus.h"

#include <QDBusVariant>
#include <QGuiApplication>

using namespace zeph;

namespace {

const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");

bool isDark()
{
    const QPalette palette = QGuiApplication::palette();
    return palette.window().color().lightness() < 128
        && palette.windowText().color().lightness() > 128
        && palette.text().color().lightness() > palette.base().color().lightness();
}

} // namespace

class Settings : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    uint scheme = 0;

public Q_SLOTS:
    QDBusVariant Read(const QString &, const QString &)
    {
        return QDBusVariant(QVariant::fromValue(QDBusVariant(scheme)));
    }
};

class DesktopAppearanceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void followsTheDesktop()
    {
        QDBusConnection desktop = m_bus.connectAs(QStringLiteral("desktop"));
        Settings settings;
        settings.scheme = 1;
        desktop.registerObject(path, &settings, QDBusConnection::ExportAllSlots);
        QVERIFY(desktop.registerService(QStringLiteral("org.freedesktop.portal.Desktop")));
        const auto change = [&](uint scheme) {
            settings.scheme = scheme;
            QDBusMessage message =
                QDBusMessage::createSignal(path, interface, QStringLiteral("SettingChanged"));
            message << appearance << QStringLiteral("color-scheme")
                    << QVariant::fromValue(QDBusVariant(scheme));
            QVERIFY(desktop.send(message));
        };

        QVERIFY(!isDark());
        DesktopAppearance look;
        look.follow();
        QTRY_VERIFY(isDark());
        change(2);
        QTRY_VERIFY(!isDark());
        change(1);
        QTRY_VERIFY(isDark());
        change(0);
        QTRY_VERIFY(!isDark());
    }

private:
    PrivateBus m_bus;
};

QTEST_MAIN(DesktopAppearanceTest)
#include "tst_desktop_appearance.moc"
