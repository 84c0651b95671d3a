#include "platform/MediaPlayer.h"

#include "platform/MediaAddress.h"
#include "platform/MediaPlayerTicket.h"
#include "platform/MpvClient.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zeph {

namespace {

struct ObservedProperty {
    const char *name;
    mpv_format format;
};

constexpr ObservedProperty observedProperties[] = {
    { "core-idle", MPV_FORMAT_FLAG },
    { "paused-for-cache", MPV_FORMAT_FLAG },
    { "cache-buffering-state", MPV_FORMAT_DOUBLE },
    { "duration", MPV_FORMAT_DOUBLE },
    { "video-out-params/rotate", MPV_FORMAT_DOUBLE },
    { "current-tracks/video/demux-rotation", MPV_FORMAT_DOUBLE },
    { "dwidth", MPV_FORMAT_DOUBLE },
    { "dheight", MPV_FORMAT_DOUBLE },
};

} // namespace

MediaPlayer::MediaPlayer(QObject *parent) : QObject(parent)
{
    m_observerTimer.setInterval(timeObserverInterval);
    m_observerTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_observerTimer, &QTimer::timeout, this, &MediaPlayer::requestPosition);
}

MediaPlayer::~MediaPlayer() = default;

void MediaPlayer::prepare()
{
    if (m_client || m_loading.valid() || m_engineMissing)
        return;
    m_loading = std::async(std::launch::async, [this] {
        auto handle = MpvHandle::create();
        QMetaObject::invokeMethod(this, &MediaPlayer::engineLoaded, Qt::QueuedConnection);
        return handle;
    });
}

void MediaPlayer::engineLoaded()
{
    const std::shared_ptr<MpvHandle> handle = m_loading.get();
    if (!handle) {
        m_engineMissing = true;
        openItem();
        return;
    }
    m_client = std::make_unique<MpvClient>(handle);
    connect(m_client.get(), &MpvClient::commandFinished, this, &MediaPlayer::onCommandFinished);
    connect(m_client.get(), &MpvClient::fileStarted, this, &MediaPlayer::onFileStarted);
    connect(m_client.get(), &MpvClient::fileOpened, this, [this](bool lengthKnown) {
        if (m_entryStarted)
            m_reported.lengthKnown = lengthKnown;
    });
    connect(m_client.get(), &MpvClient::fileLoaded, this, &MediaPlayer::onFileLoaded);
    connect(m_client.get(), &MpvClient::fileEnded, this, &MediaPlayer::onFileEnded);
    connect(
        m_client.get(), &MpvClient::seekStarted, this, [this] { m_startedJump = m_queuedJump; });
    connect(m_client.get(), &MpvClient::playbackRestarted, this, &MediaPlayer::onPlaybackRestarted);
    connect(m_client.get(), &MpvClient::propertyChanged, this,
        [this](quint64 observation, const QByteArray &property, const QVariant &value) {
            if (observation >> purposeBits == m_load)
                onPropertyChanged(property, value);
        });
    connect(m_client.get(), &MpvClient::eventsDrained, this, &MediaPlayer::onReportsComplete);
    connect(m_client.get(), &MpvClient::answered, this, &MediaPlayer::onAnswer);

    m_client->setFlag("pause", !m_playing);
    setVolume(m_volume);
    setMuted(m_muted);
    Q_EMIT engineReady();
    if (m_stage == Stage::Held)
        openItem();
}

// ---- The item

void MediaPlayer::replaceCurrentItem(std::unique_ptr<MediaItem> item)
{
    if (!item && !m_item)
        return;
    if (m_item) {
        // It may be the item itself that is telling of its news right now.
        m_item->setParent(this);
        m_item.release()->deleteLater();
    }
    m_item = std::move(item);
    forgetLoad();
    m_liveReload.reset();
    m_seekWhenOpen.reset();
    m_lastLanding.reset();
    m_seekLead = 0;
    setCurrentTime(0);
    if (m_item) {
        openItem();
    } else {
        if (m_client)
            m_client->command({ "stop" });
        setStage(Stage::Empty);
    }
    Q_EMIT currentItemChanged();
}

void MediaPlayer::openItem()
{
    if (!m_item)
        return;
    const std::optional<QByteArray> address = engineAddress(m_item->url());
    if (!address || m_engineMissing) {
        failItem(m_engineMissing ? tr("The playback library (libmpv) could not be loaded.")
                                 : tr("This kind of address cannot be played."));
        return;
    }
    // An item that is opened before there is something to draw on fails as a whole.
    if (!m_client || m_videoOutput == VideoOutput::Awaited) {
        setStage(Stage::Held);
        prepare();
        return;
    }
    forgetLoad();
    m_client->command({ "loadfile", *address }, ticket(Purpose::Load, m_load));
    setStage(Stage::Opening);
}

// What the engine still says of the load is stale from now on.
void MediaPlayer::forgetLoad()
{
    if (m_client) {
        m_client->unobserve(ticket(Purpose::Item, m_load));
        m_client->unobserve(ticket(Purpose::End, m_load));
    }
    ++m_load;
    m_entry = 0;
    m_entryStarted = false;
    ++m_jumps;
    m_seekTarget.reset();
}

void MediaPlayer::failItem(const QString &errorText)
{
    MediaItem *item = m_item.get();
    MediaItem::State state;
    state.status = MediaItem::Status::Failed;
    state.errorText = errorText;
    state.hasPicture = false;
    forgetLoad();
    if (m_client)
        m_client->command({ "stop" });
    setStage(Stage::Failed);
    item->update(state);
}

void MediaPlayer::onCommandFinished(quint64 command, bool accepted, qint64 entry)
{
    if (command == ticket(Purpose::Load, m_load)) {
        m_entry = entry;
    } else if (command == ticket(Purpose::Seek, m_jumps)) {
        m_queuedJump = m_jumps;
        if (!accepted)
            abandonSeek();
    }
}

void MediaPlayer::onFileStarted(qint64 entry)
{
    m_entryStarted = entry == m_entry && m_entry != 0;
    if (!m_entryStarted)
        return;
    // Observing afresh under this load's number makes sure that every value is of this item.
    m_reported = {};
    for (const ObservedProperty &property : observedProperties)
        m_client->observe(ticket(Purpose::Item, m_load), property.name, property.format);
    observeEnd();
}

// An observation reports changes since its last report. Between two looks an item can leave its end
// and reach it again, which is no change: so the end is observed afresh after each jump.
void MediaPlayer::observeEnd()
{
    m_client->unobserve(ticket(Purpose::End, m_load));
    m_client->observe(ticket(Purpose::End, m_load), "eof-reached", MPV_FORMAT_FLAG);
}

void MediaPlayer::onFileLoaded()
{
    if (!m_entryStarted || m_stage != Stage::Opening)
        return;
    // Answers come in the order of the questions: with the last the item is open.
    m_client->request(ticket(Purpose::Seekable, m_load), "seekable", MPV_FORMAT_FLAG);
    m_client->request(ticket(Purpose::FrameRate, m_load), "container-fps", MPV_FORMAT_DOUBLE);
    m_client->request(
        ticket(Purpose::VideoTrack, m_load), "current-tracks/video/id", MPV_FORMAT_DOUBLE);
    m_client->request(ticket(Purpose::Duration, m_load), "duration", MPV_FORMAT_DOUBLE);
}

void MediaPlayer::onAnswer(quint64 question, const QVariant &value)
{
    if (question == ticket(Purpose::Position, m_jumps)) {
        if (value.isValid() && m_stage == Stage::Open)
            setCurrentTime(value.toDouble());
    } else if (question == ticket(Purpose::Landing, m_jumps)) {
        if (value.isValid() && m_stage == Stage::Open)
            landed(value.toDouble());
    } else if (question == ticket(Purpose::Seekable, m_load)) {
        m_reported.seekable = value.toBool();
    } else if (question == ticket(Purpose::FrameRate, m_load)) {
        m_reported.framesPerSecond = value.toDouble();
    } else if (question == ticket(Purpose::VideoTrack, m_load)) {
        m_reported.hasVideoTrack = value.isValid();
    } else if (question == ticket(Purpose::Duration, m_load)) {
        itemOpened(value);
    }
}

void MediaPlayer::itemOpened(const QVariant &duration)
{
    MediaItem *item = m_item.get();
    const bool wasLive = item->isLive();
    MediaItem::State state;
    state.status = MediaItem::Status::ReadyToPlay;
    state.isLive = !m_reported.lengthKnown && !item->url().isLocalFile();
    m_reported.duration = duration.toDouble();
    const quint64 load = m_load;
    setStage(Stage::Open);
    item->update(reportedOf(state));
    if (load != m_load)
        return;
    // A live stream that comes back with an end is over: show that end, not all of it again.
    if (wasLive && !item->isLive())
        seekInItem(item->duration());
    else if (const auto seconds = std::exchange(m_seekWhenOpen, {}))
        seekInItem(*seconds);
    else if (m_reported.ended)
        itemEnded();
}

void MediaPlayer::onFileEnded(qint64 entry, const QString &error)
{
    if (entry != m_entry || m_entry == 0)
        return;
    if (m_stage == Stage::Open || m_item->isLive()) {
        // The engine has nothing left to seek in: to be played again, the item is opened again.
        m_reported.seekable = false;
        itemEnded();
    } else {
        failItem(error.isEmpty() ? tr("There is nothing to play at this address.") : error);
    }
}

void MediaPlayer::itemEnded()
{
    if (m_item->isLive()) {
        dropped();
        return;
    }
    m_stage = Stage::Ended;
    if (m_item->duration() > 0)
        setCurrentTime(m_item->duration());
    // Only now is the status looked at: at its end an item does not wait.
    setPlaying(false);
    updateTimeControlStatus();
}

// The end of a live stream is a loss: its source went away, and may come back.
void MediaPlayer::dropped()
{
    MediaItem *item = m_item.get();
    MediaItem::State state = item->state();
    state.isPlaybackBufferEmpty = true;
    state.isPlaybackLikelyToKeepUp = false;
    if (m_playing)
        m_liveReload.schedule([this] { openItem(); });
    setStage(Stage::Dropped);
    item->update(state);
}

void MediaPlayer::setStage(Stage stage)
{
    m_stage = stage;
    updateTimeControlStatus();
}

// ---- Rate

void MediaPlayer::play()
{
    if (m_playing)
        return;
    const bool fromEnd = m_stage == Stage::Ended;
    if (fromEnd && m_reported.seekable)
        seekInItem(0);
    else if (fromEnd || m_stage == Stage::Failed || m_stage == Stage::Dropped)
        openItem();
    setPlaying(true);
}

void MediaPlayer::pause()
{
    setPlaying(false);
    m_liveReload.cancel();
}

void MediaPlayer::setPlaying(bool playing)
{
    if (m_playing == playing)
        return;
    m_playing = playing;
    if (m_client)
        m_client->setFlag("pause", !playing);
    Q_EMIT rateChanged();
    updateTimeControlStatus();
    notifyTimeObservers();
}

void MediaPlayer::updateTimeControlStatus()
{
    const bool moving = m_stage == Stage::Open && !m_reported.idle;
    const auto status = !m_playing ? TimeControlStatus::Paused
        : moving                   ? TimeControlStatus::Playing
                                   : TimeControlStatus::WaitingToPlayAtSpecifiedRate;
    if (std::exchange(m_timeControlStatus, status) == status)
        return;

    if (status == TimeControlStatus::Playing) {
        m_observerTimer.start();
        if (m_item->isLive())
            m_liveReload.streamStarted();
    } else {
        m_observerTimer.stop();
    }
    requestPosition();
    Q_EMIT timeControlStatusChanged();
}

// ---- What the engine reports

void MediaPlayer::onPropertyChanged(const QByteArray &property, const QVariant &value)
{
    const int rotation = pictureRotation();
    if (property == "core-idle")
        m_reported.idle = value.toBool();
    else if (property == "eof-reached")
        m_reported.ended = value.toBool();
    else if (property == "duration")
        m_reported.duration = value.toDouble();
    else if (property == "paused-for-cache")
        m_reported.stalled = value.toBool();
    else if (property == "cache-buffering-state")
        m_reported.bufferingPercent = value.toDouble();
    else if (property == "dwidth")
        m_reported.width = value.toDouble();
    else if (property == "dheight")
        m_reported.height = value.toDouble();
    else if (property == "video-out-params/rotate")
        m_reported.rotation = value.toDouble();
    else if (property == "current-tracks/video/demux-rotation")
        m_reported.trackRotation = value.toDouble();
    if (pictureRotation() != rotation)
        Q_EMIT pictureGeometryChanged();
}

// The engine reports one property after the other; only together they make sense: width and height,
// or that nothing moves because the end is reached.
void MediaPlayer::onReportsComplete()
{
    if (m_stage != Stage::Open && m_stage != Stage::Ended)
        return;
    MediaItem *item = m_item.get();
    const MediaItem::State state = reportedOf(item->state());
    if (state.presentationSize != item->presentationSize()) {
        Q_EMIT pictureGeometryChanged();
        notifyTimeObservers();
    }
    // While a seek is under way, an end is the one that it leaves.
    if (m_reported.ended && m_stage == Stage::Open && !m_seekTarget)
        itemEnded();
    else
        updateTimeControlStatus();
    item->update(state);
}

// `state`, with what the engine reports all the time.
MediaItem::State MediaPlayer::reportedOf(MediaItem::State state) const
{
    state.duration = m_reported.duration;
    state.isPlaybackBufferEmpty = m_reported.stalled;
    state.isPlaybackLikelyToKeepUp = !m_reported.stalled && m_reported.bufferingPercent >= 100;
    state.presentationSize = QSizeF(m_reported.width, m_reported.height);
    if (state.presentationSize.isEmpty())
        state.presentationSize = QSizeF(0, 0);
    state.hasPicture = m_reported.hasVideoTrack || !state.presentationSize.isEmpty();
    if (std::fmod(m_reported.rotation + pictureRotation(), 180) != 0)
        state.presentationSize.transpose();
    return state;
}

// ---- Sound

void MediaPlayer::setVolume(double volume)
{
    if (std::isnan(volume))
        return;
    m_volume = std::clamp(volume, 0.0, 1.0);
    // The engine's scale is cubic, so that it feels even to the ear; ours is amplitude, as in the
    // web players, so that a volume means the same for every source.
    if (m_client)
        m_client->setNumber("volume", 100 * std::cbrt(m_volume));
}

void MediaPlayer::setMuted(bool muted)
{
    m_muted = muted;
    if (m_client)
        m_client->setFlag("mute", muted);
}

} // namespace zeph
