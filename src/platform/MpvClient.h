// Commands to a player core, and its events as signals.
#pragma once

#include "platform/MpvHandle.h"

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QVariant>

#include <atomic>

namespace zeph {

/// Talks to a player core without ever waiting for it: every call returns at once, and what comes
/// of it arrives as a signal. Calls are carried out in the order in which they were made.
/// Main thread only.
class MpvClient : public QObject {
    Q_OBJECT

public:
    explicit MpvClient(std::shared_ptr<MpvHandle> handle, QObject *parent = nullptr);
    ~MpvClient() override;

    const std::shared_ptr<MpvHandle> &handle() const { return m_handle; }

    /// `commandFinished` answers under `request`, unless that is 0.
    void command(const QList<QByteArray> &arguments, quint64 request = 0);

    void setFlag(const char *property, bool value);
    void setNumber(const char *property, double value);
    void setText(const char *property, const char *value);

    /// `propertyChanged` reports the value now and whenever it changes, under `observation`.
    void observe(quint64 observation, const char *property, mpv_format format);
    void unobserve(quint64 observation);
    /// `answered` gives the value once, under `question`.
    void request(quint64 question, const char *property, mpv_format format);

Q_SIGNALS:
    /// The core has taken note of the command, not carried it out; or has refused it. Of what it is
    /// to load, `entry` is the number that comes back in `fileStarted` and `fileEnded`; otherwise
    /// it is 0.
    void commandFinished(quint64 request, bool accepted, qint64 entry);
    void fileStarted(qint64 entry);
    /// The file is open, and nothing but its head has been read. Whether its length is known tells
    /// at this moment only: later it counts as as long as what has been read of it.
    void fileOpened(bool lengthKnown);
    void fileLoaded();
    /// `error` is empty when the file ended or was replaced, else a sentence.
    void fileEnded(qint64 entry, const QString &error);
    /// The core begins with the last seek that it has taken note of.
    void seekStarted();
    /// Playing goes on after a load or a seek; the picture and the position are the new ones.
    void playbackRestarted();
    /// An invalid value means that the property is unavailable.
    void propertyChanged(quint64 observation, const QByteArray &property, const QVariant &value);
    /// All that the core had to say for now has been told.
    void eventsDrained();
    /// An invalid value means that the property is unavailable.
    void answered(quint64 question, const QVariant &value);

private:
    void scheduleEvents();
    void drainEvents();
    void handleEvent(const mpv_event &event);

    const std::shared_ptr<MpvHandle> m_handle;
    std::atomic<bool> m_eventsScheduled = false;
    quint64 m_openingHook = 0; ///< The core holds a file that it has opened until this continues.
};

} // namespace zeph
