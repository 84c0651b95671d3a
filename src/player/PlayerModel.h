// The one object that owns playback.
#pragma once

#include "platform/Delay.h"
#include "platform/EventMonitor.h"
#include "platform/KeyRepeat.h"
#include "platform/MediaPlayer.h"
#include "player/LastPlayableSource.h"
#include "sources/PlaylistReader.h"

#include <QList>
#include <QObject>
#include <QQmlEngine>
#include <QUuid>

#include <optional>

class QKeyEvent;

namespace zeph {

class FilePanels;

/// Holds the media player, publishes what the views draw, and carries out what menus, keys and
/// panels ask for. It plays one of three kinds of source at a time: native media, a YouTube page or
/// an OK page; `youtubeContent` and `okVideoContent` tell which, native when both are empty.
///
/// A text or address property is empty when there is none. Main thread only.
class PlayerModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application owns the one player model.")

    /// Title of what plays; also the window's.
    Q_PROPERTY(QString title READ title NOTIFY titleChanged)
    /// The last error, a sentence for the panels to show.
    Q_PROPERTY(QString errorMessage READ errorMessage NOTIFY errorMessageChanged)
    /// A channel list is being fetched.
    Q_PROPERTY(bool isLoading READ isLoading NOTIFY isLoadingChanged)
    /// Bytes of that list that have arrived so far.
    Q_PROPERTY(qint64 loadedBytes READ loadedBytes NOTIFY loadedBytesChanged)
    /// The channels of the last opened list.
    Q_PROPERTY(QList<zeph::PlaylistEntry> playlist READ playlist NOTIFY playlistChanged)
    Q_PROPERTY(bool isPlaying READ isPlaying NOTIFY isPlayingChanged)
    /// Seconds.
    Q_PROPERTY(double currentTime READ currentTime NOTIFY currentTimeChanged)
    /// Seconds; 0 when unknown or without end.
    Q_PROPERTY(double duration READ duration NOTIFY durationChanged)
    /// 0…1.
    Q_PROPERTY(double volume READ volume WRITE setVolume NOTIFY volumeChanged)
    Q_PROPERTY(bool isMuted READ isMuted NOTIFY isMutedChanged)
    /// Width ÷ height of the picture; 0 when unknown. To be trusted only while
    /// `videoAspectMediaLoadID` equals `mediaLoadID`: until then it is the last item's.
    Q_PROPERTY(double videoAspectRatio READ videoAspectRatio NOTIFY videoAspectRatioChanged)
    /// Identity of the current load, renewed by every native load.
    Q_PROPERTY(QUuid mediaLoadID READ mediaLoadID NOTIFY mediaLoadIDChanged)
    /// The load for which `videoAspectRatio` was measured; null when for none.
    Q_PROPERTY(QUuid videoAspectMediaLoadID READ videoAspectMediaLoadID NOTIFY
            videoAspectMediaLoadIDChanged)
    /// The current native item was opened as a live stream.
    Q_PROPERTY(bool isLiveStream READ isLiveStream NOTIFY isLiveStreamChanged)
    /// The buffering indicator is to be shown.
    Q_PROPERTY(bool isBuffering READ isBuffering NOTIFY isBufferingChanged)
    /// The active YouTube source; undefined when there is none.
    Q_PROPERTY(QVariant youtubeContent READ youtubeContentValue NOTIFY youtubeContentChanged)
    /// The active OK source; undefined when there is none.
    Q_PROPERTY(QVariant okVideoContent READ okVideoContentValue NOTIFY okVideoContentChanged)
    /// A short message over the picture, shown for a moment.
    Q_PROPERTY(QString toastMessage READ toastMessage NOTIFY toastMessageChanged)
    /// Address of the current native item.
    Q_PROPERTY(QUrl currentURL READ currentURL NOTIFY currentURLChanged)
    /// The native player, for the surface that shows its picture.
    Q_PROPERTY(zeph::MediaPlayer *player READ player CONSTANT)

public:
    /// `panels` outlives the model.
    explicit PlayerModel(FilePanels &panels, QObject *parent = nullptr);
    ~PlayerModel() override;

    const QString &title() const { return m_title; }
    const QString &errorMessage() const { return m_errorMessage; }
    bool isLoading() const { return m_isLoading; }
    qint64 loadedBytes() const { return m_loadedBytes; }
    const QList<PlaylistEntry> &playlist() const { return m_playlist; }
    bool isPlaying() const { return m_isPlaying; }
    double currentTime() const { return m_currentTime; }
    double duration() const { return m_duration; }
    double volume() const { return m_volume; }
    bool isMuted() const { return m_isMuted; }
    double videoAspectRatio() const { return m_videoAspectRatio; }
    QUuid mediaLoadID() const { return m_mediaLoadID; }
    QUuid videoAspectMediaLoadID() const { return m_videoAspectMediaLoadID; }
    bool isLiveStream() const { return m_isLiveStream; }
    bool isBuffering() const { return m_isBuffering; }
    const std::optional<YouTubeContent> &youtubeContent() const { return m_youtubeContent; }
    const std::optional<OKVideoContent> &okVideoContent() const { return m_okVideoContent; }
    const QString &toastMessage() const { return m_toastMessage; }
    const QUrl &currentURL() const { return m_currentURL; }
    /// Whether anything is open, be it played or not.
    bool hasSource() const;
    MediaPlayer *player() { return &m_player; }

    /// Starts a native item. Without a display name its title is the file name in the address,
    /// or all of the address where there is none.
    void play(const QUrl &url, const std::optional<QString> &displayName, bool isLiveStream);
    /// Shows a web page's player in place of the native one, playing.
    void show(const YouTubeContent &content, const QString &title);
    void show(const OKVideoContent &content, const QString &title);

    /// Lets the user choose a media file, and plays it.
    Q_INVOKABLE void openFile();
    /// Unloads what plays. It can be played again with `togglePlayback`.
    Q_INVOKABLE void stop();
    Q_INVOKABLE void togglePlayback();
    /// Back when negative. A number that is not finite is ignored.
    Q_INVOKABLE void skip(double seconds);
    Q_INVOKABLE void toggleMute();
    /// Limited to 0…1; 0 also mutes. Not-a-number is ignored.
    Q_INVOKABLE void setVolume(double value);
    /// Changes the volume by a part of the full one, to whole per cent, and shows it.
    void adjustVolume(double delta);
    /// Renames a live stream; nothing else has a title that changes.
    void updateStreamTitle(const QString &name);

    /// Opens an address as it was typed or pasted: a video page, a list of channels, which fills
    /// `playlist` some time later, or a stream. A blank name is none.
    void openRemote(const QString &address, const QString &displayName);
    /// The address within what was typed or pasted: without blanks around it, without angle
    /// brackets, and out of a Markdown link.
    static QString normalizedRemoteAddress(const QString &text);
    /// Whether a normalized address is one of the web; no other is opened.
    static bool isWebAddress(const QString &address);
    /// Whether `url` names a list of channels. One that ends in "m3u8" names a stream.
    static bool isIPTVPlaylistURL(const QUrl &url);

    /// Opens a file as a list of channels, which fills `playlist` some time later.
    void openPlaylistFile(const QUrl &file);

    /// Lets the user choose a list of channels, fills `playlist` with it, and answers with its
    /// entries. Nothing when the user cancels or the list cannot be read. A blank name is none.
    std::optional<QList<PlaylistEntry>> importLocalM3U(const QString &displayName);

    /// Forgets the list and whatever came from the network, and stops.
    void clearNetworkStream();
    /// Leaves nothing to replay but a local file.
    void discardLastRemoteSource();

    /// Plays what was stopped, or tells that there is nothing.
    void replayLastSourceOrShowToast();
    /// Replaces the message that is shown, if any; its time starts anew.
    void showToast(const QString &message, quint64 durationNanoseconds);

    /// From now on the keys control the player, unless what has the focus needs them, and the
    /// mouse's moves are notified as `playerMouseMoved`. A second call does nothing.
    void installKeyboardShortcuts();

Q_SIGNALS:
    void titleChanged();
    void errorMessageChanged();
    void isLoadingChanged();
    void loadedBytesChanged();
    void playlistChanged();
    void isPlayingChanged();
    void currentTimeChanged();
    void durationChanged();
    void volumeChanged();
    void isMutedChanged();
    void videoAspectRatioChanged();
    void mediaLoadIDChanged();
    void videoAspectMediaLoadIDChanged();
    void isLiveStreamChanged();
    void isBufferingChanged();
    void youtubeContentChanged();
    void okVideoContentChanged();
    void toastMessageChanged();
    void currentURLChanged();

private:
    using Signal = void (PlayerModel::*)();

    /// Gives a published property its value, and tells the observers when that is a new one.
    template <typename Value> void publish(Value &property, const Value &value, Signal changed);

    QVariant youtubeContentValue() const;
    QVariant okVideoContentValue() const;

    void observeTime(double seconds);
    void publishAspectRatio(double ratio);
    void clearAspectRatio();
    void applyVolume();
    void applyMute();
    void bringPageUpToDate();
    void beginWebLoad();
    void leaveWebContent();
    void showWebContent(const std::optional<YouTubeContent> &youtube,
        const std::optional<OKVideoContent> &okVideo, const QString &title);

    void loadM3U(const QUrl &url, const QString &displayName, QUuid requestID);
    void readM3U(
        const QByteArray &bytes, const QUrl &url, const QString &displayName, QUuid requestID);
    void finishLoading(
        const QList<PlaylistEntry> &entries, const QString &displayName, QUuid requestID);
    void failLoading(const QString &errorText, QUuid requestID);
    std::nullopt_t failImport(const QString &errorText);

    void observeBuffering(const MediaItem &item);
    void refreshBufferingState();
    bool isWaitingToPlay() const;
    void showBufferingIndicatorAfterDelay();
    void hideBufferingIndicator();

    /// Returns whether the press is consumed.
    bool handleKeyPress(const QKeyEvent &press);

    FilePanels &m_panels;

    QString m_title;
    QString m_errorMessage;
    bool m_isLoading = false;
    qint64 m_loadedBytes = 0;
    QList<PlaylistEntry> m_playlist;
    bool m_isPlaying = false;
    double m_currentTime = 0;
    double m_duration = 0;
    double m_volume = 1;
    bool m_isMuted = false;
    double m_videoAspectRatio = 0;
    QUuid m_mediaLoadID;
    QUuid m_videoAspectMediaLoadID;
    bool m_isLiveStream = false;
    bool m_isBuffering = false;
    std::optional<YouTubeContent> m_youtubeContent;
    std::optional<OKVideoContent> m_okVideoContent;
    QString m_toastMessage;
    QUrl m_currentURL;

    MediaPlayer m_player;
    int m_timeObserver = 0;
    std::optional<KeyRepeat> m_keyRepeat;
    std::optional<EventMonitor> m_keyboardMonitor;
    std::optional<EventMonitor> m_mouseMonitor;
    Delay m_bufferingIndicatorTask;
    Delay m_toastTask;
    QUuid m_remoteRequestID; ///< Of the newest request: answers to older ones change nothing.
    std::optional<LastPlayableSource> m_lastPlayableSource;
};

template <typename Value>
void PlayerModel::publish(Value &property, const Value &value, Signal changed)
{
    if (property == value)
        return;
    property = value;
    Q_EMIT(this->*changed)();
}

} // namespace zeph
