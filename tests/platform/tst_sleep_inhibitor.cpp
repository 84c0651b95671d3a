// What the desktop is asked, over a real bus, so that the screen stays on.
#include "platform/SleepInhibitor.h"
#include "support/EngineTest.h"
#include "support/PrivateBus.h"

#include <QDBusContext>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QVariantMap>

using namespace zeph;

namespace {

const QString portalName = QStringLiteral("org.freedesktop.portal.Desktop");
const QString screenSaverName = QStringLiteral("org.freedesktop.ScreenSaver");

} // namespace

class Portal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Inhibit")

public:
    QList<uint> flags;
    QStringList reasons;

public Q_SLOTS:
    QDBusObjectPath Inhibit(const QString &, uint what, const QVariantMap &options)
    {
        flags << what;
        reasons << options.value(QStringLiteral("reason")).toString();
        return QDBusObjectPath(QStringLiteral("/request/%1").arg(flags.size()));
    }
};

class Request : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Request")

public:
    int closed = 0;

public Q_SLOTS:
    void Close() { ++closed; }
};

class ScreenSaver : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.ScreenSaver")

public:
    QStringList reasons;
    QList<uint> released;

public Q_SLOTS:
    uint Inhibit(const QString &, const QString &reason)
    {
        reasons << reason;
        return uint(40 + reasons.size());
    }
    void UnInhibit(uint cookie) { released << cookie; }
};

class SleepInhibitorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_desktop.emplace(m_bus.connectAs(QStringLiteral("desktop"))); }
    void cleanup()
    {
        m_desktop.reset();
        QDBusConnection::disconnectFromBus(QStringLiteral("desktop"));
    }

    void asksThePortal()
    {
        Portal portal;
        Request first;
        Request second;
        m_desktop->registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), &portal,
            QDBusConnection::ExportAllSlots);
        m_desktop->registerObject(
            QStringLiteral("/request/1"), &first, QDBusConnection::ExportAllSlots);
        m_desktop->registerObject(
            QStringLiteral("/request/2"), &second, QDBusConnection::ExportAllSlots);
        QVERIFY(m_desktop->registerService(portalName));

        SleepInhibitor inhibitor(QStringLiteral("A film"));
        inhibitor.setInhibiting(true);
        QTRY_VERIFY(portal.flags == QList<uint> { 12 }); // Suspending, and being idle.
        QCOMPARE(portal.reasons, QStringList { QStringLiteral("A film") });
        inhibitor.setInhibiting(false);
        QTRY_VERIFY(first.closed == 1);
        inhibitor.setInhibiting(true);
        QTRY_VERIFY(portal.flags.size() == 2);
        inhibitor.setInhibiting(true);
        inhibitor.setInhibiting(false);
        QTRY_VERIFY(second.closed == 1);
        QCOMPARE(portal.flags.size(), 2);
        QCOMPARE(first.closed, 1);
    }

    void asksTheScreenSaverWhereThereIsNoPortal()
    {
        ScreenSaver saver;
        m_desktop->registerObject(QStringLiteral("/org/freedesktop/ScreenSaver"), &saver,
            QDBusConnection::ExportAllSlots);
        QVERIFY(m_desktop->registerService(screenSaverName));

        SleepInhibitor inhibitor(QStringLiteral("A film"));
        inhibitor.setInhibiting(true);
        QTRY_VERIFY(saver.reasons == QStringList { QStringLiteral("A film") });
        inhibitor.setInhibiting(false);
        QTRY_VERIFY(saver.released == QList<uint> { 41 });
    }

    void whatIsGrantedTooLateIsGivenBack()
    {
        ScreenSaver saver;
        m_desktop->registerObject(QStringLiteral("/org/freedesktop/ScreenSaver"), &saver,
            QDBusConnection::ExportAllSlots);
        QVERIFY(m_desktop->registerService(screenSaverName));
        SleepInhibitor inhibitor(QStringLiteral("A film"));
        for (int i = 0; i < 5; ++i) {
            inhibitor.setInhibiting(true);
            inhibitor.setInhibiting(false);
        }
        QTRY_VERIFY(saver.reasons.size() == 1);
        QTRY_VERIFY(saver.released == QList<uint> { 41 });
    }

    void whereThereIsNeitherNothingHappens()
    {
        SleepInhibitor inhibitor(QStringLiteral("A film"));
        inhibitor.setInhibiting(true);
        QVERIFY(inhibitor.isInhibiting());
        inhibitor.setInhibiting(false);

        ScreenSaver saver; // One that comes later is asked the next time.
        m_desktop->registerObject(QStringLiteral("/org/freedesktop/ScreenSaver"), &saver,
            QDBusConnection::ExportAllSlots);
        QVERIFY(m_desktop->registerService(screenSaverName));
        const auto asked = [&] {
            inhibitor.setInhibiting(false);
            inhibitor.setInhibiting(true);
            return !saver.reasons.isEmpty();
        };
        QTRY_VERIFY(asked());
    }

    void withoutABusNothingHappens()
    {
        const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
        const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        qputenv("XDG_RUNTIME_DIR", "/nowhere");
        SleepInhibitor inhibitor(QStringLiteral("A film"));
        inhibitor.setInhibiting(true);
        inhibitor.setInhibiting(false);
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        qputenv("XDG_RUNTIME_DIR", runtime);
    }

private:
    PrivateBus m_bus;
    std::optional<QDBusConnection> m_desktop;
};

QTEST_GUILESS_MAIN(SleepInhibitorTest)
#include "tst_sleep_inhibitor.moc"
