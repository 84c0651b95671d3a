// The player, as the desktop's media controls see it.
#pragma once

#include <QDBusAbstractAdaptor>
#include <QDBusObjectPath>
#include <QElapsedTimer>
#include <QVariantMap>

namespace zeph {

class ContentView;
class PlayerModel;

/// The interface org.mpris.MediaPlayer2.Player. It has no state of its own: each request is one of
/// the model's operations. Times are in microseconds. Main thread only.
class MprisPlayer : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2.Player")

    Q_PROPERTY(QString PlaybackStatus READ playbackStatus)
    Q_PROPERTY(double Rate READ rate WRITE setRate)
    Q_PROPERTY(double MinimumRate READ rate CONSTANT)
    Q_PROPERTY(double MaximumRate READ rate CONSTANT)
    Q_PROPERTY(QVariantMap Metadata READ metadata)
    Q_PROPERTY(double Volume READ volume WRITE setVolume)
    Q_PROPERTY(qlonglong Position READ position)
    Q_PROPERTY(bool CanGoNext READ no CONSTANT)
    Q_PROPERTY(bool CanGoPrevious READ no CONSTANT)
    Q_PROPERTY(bool CanPlay READ yes CONSTANT)
    Q_PROPERTY(bool CanPause READ yes CONSTANT)
    Q_PROPERTY(bool CanSeek READ canSeek)
    Q_PROPERTY(bool CanControl READ yes CONSTANT)

public:
    /// Takes properties with their new values, for the desktop.
    using Tell = std::function<void(const QVariantMap &values)>;

    /// `view` outlives the adaptor.
    MprisPlayer(ContentView &view, Tell tell, QObject *parent);

    QString playbackStatus() const;
    double rate() const { return 1; }
    void setRate(double) { }
    QVariantMap metadata() const;
    double volume() const;
    void setVolume(double volume);
    qlonglong position() const;
    bool canSeek() const;
    bool yes() const { return true; }
    bool no() const { return false; }

public Q_SLOTS:
    void Next() { }
    void Previous() { }
    void Play();
    void Pause();
    void PlayPause();
    void Stop();
    void Seek(qlonglong offset);
    void SetPosition(const QDBusObjectPath &track, qlonglong position);
    void OpenUri(const QString &uri);

Q_SIGNALS:
    // All signals of an adaptor are sent on the bus.
    void Seeked(qlonglong position);

private:
    QDBusObjectPath track() const;
    void tell(const QString &property);
    void observeTime();

    ContentView &m_view;
    PlayerModel &m_model;
    const Tell m_tell;
    double m_lastTime = 0; ///< Seconds.
    QElapsedTimer m_sinceLastTime;
};

} // namespace zeph
