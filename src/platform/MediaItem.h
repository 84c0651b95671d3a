// One thing to play, and what is known of it.
#pragma once

#include <QObject>
#include <QSizeF>
#include <QString>
#include <QUrl>

namespace zeph {

/// A local file or network stream that a `MediaPlayer` plays. Everything but the address is unknown
/// until the player has opened it, and is kept up to date by the player from then on.
/// Main thread only.
class MediaItem : public QObject {
    Q_OBJECT

public:
    enum class Status {
        Unknown, ///< Not opened yet.
        ReadyToPlay,
        Failed, ///< Could not be opened or decoded; `errorText` says why.
    };

    explicit MediaItem(QUrl url, QObject *parent = nullptr);

    const QUrl &url() const { return m_url; }

    Status status() const { return m_status; }
    /// A sentence for the user; empty unless the status is `Failed`.
    const QString &errorText() const { return m_errorText; }

    /// Seconds. 0 while unknown, and for a live stream, which has no end.
    double duration() const { return m_duration; }
    /// A stream from the network without an end.
    bool isLive() const { return m_live; }

    /// The size at which the picture is meant to be seen, with pixel aspect and rotation applied.
    /// 0 by 0 while unknown, and for sound alone.
    QSizeF presentationSize() const { return m_presentationSize; }

    /// Playback has used up all that was loaded and waits for more.
    bool isPlaybackBufferEmpty() const { return m_playbackBufferEmpty; }
    /// Enough is loaded to play on without stalling.
    bool isPlaybackLikelyToKeepUp() const { return m_playbackLikelyToKeepUp; }

Q_SIGNALS:
    void statusChanged();
    void durationChanged();
    void presentationSizeChanged();
    void playbackBufferEmptyChanged();
    void playbackLikelyToKeepUpChanged();

private:
    friend class MediaPlayer;

    void setReadyToPlay(bool live);
    void setFailed(const QString &errorText);
    void setStatus(Status status);
    void setDuration(double seconds);
    void setPresentationSize(QSizeF size);
    void setPlaybackBufferEmpty(bool empty);
    void setPlaybackLikelyToKeepUp(bool likely);

    const QUrl m_url;
    Status m_status = Status::Unknown;
    QString m_errorText;
    double m_duration = 0;
    bool m_live = false;
    QSizeF m_presentationSize { 0, 0 };
    bool m_playbackBufferEmpty = true;
    bool m_playbackLikelyToKeepUp = false;
};

} // namespace zeph
