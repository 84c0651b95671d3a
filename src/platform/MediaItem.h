// One thing to play, and what is known of it.
#pragma once

#include <QObject>
#include <QPointer>
#include <QSizeF>
#include <QString>
#include <QUrl>

namespace zeph {

class MediaItemVideoOutput;

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
    ~MediaItem() override;

    const QUrl &url() const { return m_url; }

    Status status() const { return m_state.status; }
    /// A sentence for the user; empty unless the status is `Failed`.
    const QString &errorText() const { return m_state.errorText; }

    /// Seconds. 0 while unknown, and for a live stream, which has no end.
    double duration() const { return m_state.duration; }
    /// A stream from the network without an end.
    bool isLive() const { return m_state.isLive; }

    /// The size at which the picture is meant to be seen, with pixel aspect and rotation applied.
    /// 0 by 0 while unknown, and for sound alone.
    QSizeF presentationSize() const { return m_state.presentationSize; }
    /// Something is to be seen, as far as is known: no longer when the item turns out to be sound
    /// alone, or could not be opened.
    bool hasPicture() const { return m_state.hasPicture; }

    /// Playback has used up all that was loaded and waits for more.
    bool isPlaybackBufferEmpty() const { return m_state.isPlaybackBufferEmpty; }
    /// Enough is loaded to play on without stalling.
    bool isPlaybackLikelyToKeepUp() const { return m_state.isPlaybackLikelyToKeepUp; }

    MediaItemVideoOutput *videoOutput() const;
    /// Who may look at the pictures that are shown; not owned, and null when nobody may. To be set
    /// before the item is drawn the first time, or the pictures up to then are not new to it.
    void setVideoOutput(MediaItemVideoOutput *output);

Q_SIGNALS:
    void statusChanged();
    void durationChanged();
    void presentationSizeChanged();
    void hasPictureChanged();
    void playbackBufferEmptyChanged();
    void playbackLikelyToKeepUpChanged();

private:
    friend class MediaPlayer;

    struct State {
        Status status = Status::Unknown;
        QString errorText;
        double duration = 0;
        bool isLive = false;
        QSizeF presentationSize { 0, 0 };
        bool hasPicture = true;
        bool isPlaybackBufferEmpty = true;
        bool isPlaybackLikelyToKeepUp = false;
    };

    const State &state() const { return m_state; }
    /// Takes over the whole of `state` before it tells of any change.
    void update(State state);

    const QUrl m_url;
    State m_state;
    QPointer<MediaItemVideoOutput> m_videoOutput;
};

} // namespace zeph
