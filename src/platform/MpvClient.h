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

    /// `loadCommandFinished` answers for the command under `request`.
    void load(quint64 request, const QByteArray &address);
    void command(const QList<QByteArray> &arguments);

    void setFlag(const char *property, bool value);
    void setNumber(const char *property, double value);
    void setText(const char *property, const char *value);

    /// `propertyChanged` reports the value now and whenever it changes, under `observation`.
    void observe(quint64 observation, const char *property, mpv_format format);
    void unobserve(quint64 observation);
    /// `answered` gives the value once, under `question`.
    void request(quint64 question, const char *property, mpv_format format);

Q_SIGNALS:
    /// `entry` is the number that the core gives to what it loads; it comes back in `fileStarted`
    /// and `fileEnded`.
    void loadCommandFinished(quint64 request, qint64 entry);
    void fileStarted(qint64 entry);
    void fileLoaded();
    /// `error` is empty when the file ended or was replaced, else a sentence.
    void fileEnded(qint64 entry, const QString &error);
    /// Playing goes on after a load or a seek; the picture and the position are the new ones.
    void playbackRestarted();
    /// An invalid value means that the property is unavailable.
    void propertyChanged(quint64 observation, const QByteArray &property, const QVariant &value);
    /// An invalid value means that the property is unavailable.
    void answered(quint64 question, const QVariant &value);

private:
    void scheduleEvents();
    void drainEvents();
    void handleEvent(const mpv_event &event);

    const std::shared_ptr<MpvHandle> m_handle;
    std::atomic<bool> m_eventsScheduled = false;
};

} // namespace zeph
