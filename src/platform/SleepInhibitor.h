// Keeps the screen from going to sleep.
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>

#include <functional>

class QDBusMessage;

namespace zeph {

/// Asks the desktop to keep the screen on, by its portal, or by the screen saver's own interface
/// where there is no portal. Where there is neither, or no session bus, nothing happens. The
/// desktop itself takes a request back when the process ends. Every call returns at once. Main
/// thread only.
class SleepInhibitor : public QObject {
    Q_OBJECT

public:
    /// `reason` is for the user, who may be shown it.
    explicit SleepInhibitor(QString reason, QObject *parent = nullptr);

    bool isInhibiting() const { return m_wanted; }
    void setInhibiting(bool inhibiting);

private:
    using Release = std::function<void()>;

    void askPortal();
    void askScreenSaver();
    void send(const QDBusMessage &request, const std::function<void(const QDBusMessage &)> &granted,
        const std::function<void()> &refused);
    void granted(const Release &release);

    const QString m_reason;
    bool m_wanted = false;
    bool m_asking = false;
    Release m_release; ///< Takes back what was granted; empty when nothing is.
};

} // namespace zeph
