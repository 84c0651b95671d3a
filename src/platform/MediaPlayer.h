// The playback engine.
#pragma once

#include "platform/LiveReload.h"
#include "platform/MediaItem.h"

#include <QByteArray>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <vector>

namespace zeph {

class MpvClient;
class MpvHandle;

/// Plays one `MediaItem` at a time; one player serves for the life of the process.
///
/// Every call returns at once. The engine's libraries are loaded in the background on first need,
/// or on `prepare`; whatever is asked before they are there is done when they are. The player works
/// without a picture output and without a display; while one is attached (see `VideoLayer`), items
/// wait until it can draw. Main thread only.
class MediaPlayer : public QObject {
    Q_OBJECT

public:
    enum class TimeControlStatus {
        Paused,
        WaitingToPlayAtSpecifiedRate, ///< Play is wanted, but nothing moves: loading, stalled,
                                      ///< failed.
        Playing,
    };

    static constexpr std::chrono::milliseconds timeObserverInterval { 250 };
    using TimeObserver = std::function<void(double seconds)>;

    explicit MediaPlayer(QObject *parent = nullptr);
    ~MediaPlayer() override;

    /// Starts to load the engine, so that the first item need not wait for it. The engine takes
    /// 40 MB, which a window that plays nothing does without: to be called when something is likely
    /// to be played soon.
    void prepare();

    MediaItem *currentItem() const { return m_item.get(); }
    /// Plays `item` from its beginning at the current rate. Null removes the item. The old item is
    /// destroyed when control returns to the event loop.
    void replaceCurrentItem(std::unique_ptr<MediaItem> item);

    /// 0 or 1: what was asked for, also while an item loads, stalls or has failed. The end of an
    /// item sets it to 0.
    double rate() const { return m_playing ? 1 : 0; }
    /// At the end of an item, plays it again from its beginning; an item that failed is tried
    /// again.
    void play();
    void pause();
    TimeControlStatus timeControlStatus() const { return m_timeControlStatus; }

    /// Seconds from the beginning of the item, as last reported; up to an observer's interval old.
    double currentTime() const { return m_currentTime; }
    /// Shows the very picture of that time. Limited to at least 0; a time that is not finite, or an
    /// item that cannot be sought in, is left alone.
    void seek(double seconds);

    /// Calls `observer` every `timeObserverInterval` while the item plays, and soon after time
    /// jumps, playing starts or stops, or the size of the picture changes. While nothing moves
    /// nothing is called. Returns a token for `removeTimeObserver`.
    int addPeriodicTimeObserver(TimeObserver observer);
    void removeTimeObserver(int token);

    /// 0…1, as a factor of amplitude. Limited to that; not-a-number is ignored.
    double volume() const { return m_volume; }
    void setVolume(double volume);
    bool isMuted() const { return m_muted; }
    void setMuted(bool muted);

Q_SIGNALS:
    void currentItemChanged();
    void rateChanged();
    void timeControlStatusChanged();
    /// The engine is loaded: a picture output can now draw from it.
    void engineReady();
    /// The picture is of another size, or the output has to turn it otherwise.
    void pictureGeometryChanged();

private:
    friend class VideoLayer;

    enum class Stage {
        Empty, ///< No item.
        Held, ///< The item waits for the engine, or for the picture output.
        Opening, ///< The engine was told to open the item.
        Open,
        Ended, ///< Open, and at its end.
        Failed, ///< Could not be opened.
        Dropped, ///< A live stream was lost; it is opened again while play is wanted.
    };
    /// What the engine last reported of the item that it has opened.
    struct Reported {
        bool idle = true;
        bool ended = false;
        bool stalled = false;
        double duration = 0;
        double bufferingPercent = 0;
        bool lengthKnown = false;
        bool seekable = false;
        double width = 0;
        double height = 0;
        double rotation = 0; ///< Degrees, clockwise, that the engine has left to turn.
        double trackRotation = 0; ///< Degrees, clockwise, that the item asks for.
        double framesPerSecond = 0;
        bool hasVideoTrack = false;
    };
    enum class VideoOutput {
        None,
        Awaited, ///< Attached, and about to be ready.
        Ready,
    };
    struct Observer {
        int token;
        TimeObserver call;
    };

    // For the picture output.
    std::shared_ptr<MpvHandle> engine() const;
    /// Degrees, clockwise, by which the output has to turn what the engine draws.
    int pictureRotation() const;
    void attachVideoOutput();
    bool hasVideoOutput() const { return m_videoOutput == VideoOutput::Ready; }
    void videoOutputReady(bool openGL);
    void videoOutputLost();
    void setEngineTurnsPictures(bool turns);

    void engineLoaded();
    void openItem();
    void forgetLoad();
    void failItem(const QString &errorText);
    void itemOpened(const QVariant &duration);
    void itemEnded();
    void dropped();
    void setStage(Stage stage);
    void setPlaying(bool playing);
    void updateTimeControlStatus();
    MediaItem::State reportedOf(MediaItem::State state) const;
    void seekInItem(double seconds);
    void abandonSeek();
    void landed(double position);
    void observeEnd();
    void requestPosition();
    void setCurrentTime(double seconds);
    void notifyTimeObservers();
    void callTimeObservers();

    void onCommandFinished(quint64 command, bool accepted, qint64 entry);
    void onFileStarted(qint64 entry);
    void onFileLoaded();
    void onFileEnded(qint64 entry, const QString &error);
    void onPlaybackRestarted();
    void onPropertyChanged(const QByteArray &property, const QVariant &value);
    void onReportsComplete();
    void onAnswer(quint64 question, const QVariant &value);

    std::future<std::shared_ptr<MpvHandle>> m_loading;
    std::unique_ptr<MpvClient> m_client;
    bool m_engineMissing = false;
    bool m_engineTurnsPictures = true;
    VideoOutput m_videoOutput = VideoOutput::None;

    std::unique_ptr<MediaItem> m_item;
    Stage m_stage = Stage::Empty;
    quint64 m_load = 0; ///< Number of the newest load; what the engine says of older ones is stale.
    qint64 m_entry = 0; ///< The engine's own number for that load; 0 until it answered.
    bool m_entryStarted = false;
    Reported m_reported;
    LiveReload m_liveReload;

    bool m_playing = false;
    TimeControlStatus m_timeControlStatus = TimeControlStatus::Paused;
    double m_currentTime = 0;
    quint64 m_jumps = 0; ///< Counts jumps in time: a position asked for before the last is stale.
    quint64 m_queuedJump = 0; ///< The last jump that the engine has taken note of.
    quint64 m_startedJump = 0; ///< The last jump that it has begun with.
    std::optional<double> m_seekWhenOpen;
    std::optional<double> m_seekTarget; ///< Until the engine has landed there or refused.
    std::optional<double> m_lastLanding;
    double m_seekLead = 0; ///< Seconds before the target at which reading starts.
    double m_volume = 1;
    bool m_muted = false;

    QTimer m_observerTimer;
    std::vector<Observer> m_observers;
    int m_lastObserverToken = 0;
    bool m_observersDue = false;
};

} // namespace zeph
