#include "player/PlayerModel.h"

#include "platform/FilePanels.h"
#include "player/DefaultTitle.h"
#include "player/JavaScriptNumber.h"
#include "player/MediaFileTypes.h"
#include "sources/UrlPath.h"
#include "sources/WebPlayerRegistry.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zeph {

namespace {

// On an OK page the commands act on the first video element.
QString onOKVideo(const QString &action)
{
    return QStringLiteral("var v=document.querySelector('video'); if(v){%1}").arg(action);
}

QString titleFromAddress(const QUrl &url)
{
    const QString name = decodedLastPathComponent(url).value_or(QString());
    return name.isEmpty() ? url.toString(QUrl::FullyEncoded) : name;
}

double finiteOrZero(double value)
{
    return std::isfinite(value) ? value : 0;
}

} // namespace

PlayerModel::PlayerModel(FilePanels &panels, QObject *parent)
    : QObject(parent)
    , m_panels(panels)
    , m_title(defaultTitle)
    , m_mediaLoadID(QUuid::createUuid())
    , m_remoteRequestID(QUuid::createUuid())
{
    m_timeObserver =
        m_player.addPeriodicTimeObserver([this](double seconds) { observeTime(seconds); });
    connect(&m_player, &MediaPlayer::timeControlStatusChanged, this,
        &PlayerModel::refreshBufferingState, Qt::QueuedConnection);
    const auto followPagesOf = [this](const WebPlayerRegistry &registry) {
        connect(&registry, &WebPlayerRegistry::pageReady, this, &PlayerModel::bringPageUpToDate);
    };
    followPagesOf(YouTubePlayerRegistry::shared());
    followPagesOf(OKVideoPlayerRegistry::shared());
}

PlayerModel::~PlayerModel()
{
    m_player.removeTimeObserver(m_timeObserver);
}

void PlayerModel::play(
    const QUrl &url, const std::optional<QString> &displayName, bool isLiveStream)
{
    publish(m_currentURL, url, &PlayerModel::currentURLChanged);
    clearAspectRatio();
    publish(m_mediaLoadID, QUuid::createUuid(), &PlayerModel::mediaLoadIDChanged);
    publish(m_youtubeContent, {}, &PlayerModel::youtubeContentChanged);
    publish(m_okVideoContent, {}, &PlayerModel::okVideoContentChanged);
    publish(m_errorMessage, {}, &PlayerModel::errorMessageChanged);
    publish(
        m_title, displayName ? *displayName : titleFromAddress(url), &PlayerModel::titleChanged);
    m_lastPlayableSource = LastMedia { url, m_title, isLiveStream };
    publish(m_isLiveStream, isLiveStream, &PlayerModel::isLiveStreamChanged);
    hideBufferingIndicator();

    auto item = std::make_unique<MediaItem>(url);
    observeBuffering(*item);
    m_player.replaceCurrentItem(std::move(item));
    applyVolume(); // A page may have played at another one last.
    m_player.play();
    publish(m_isPlaying, true, &PlayerModel::isPlayingChanged);
}

void PlayerModel::openFile()
{
    // Its time is the user's, who looks for the file meanwhile.
    m_player.prepare();
    const auto url = m_panels.chooseFile(
        { tr("Choose Media to Play"), tr("Video and audio"), mediaFileExtensions() });
    if (url)
        play(*url, url->fileName(), false);
}

bool PlayerModel::hasSource() const
{
    return m_player.currentItem() || m_youtubeContent || m_okVideoContent;
}

void PlayerModel::stop()
{
    publish(m_currentURL, {}, &PlayerModel::currentURLChanged);
    m_player.pause();
    m_player.replaceCurrentItem(nullptr);
    publish(m_currentTime, 0.0, &PlayerModel::currentTimeChanged);
    publish(m_duration, 0.0, &PlayerModel::durationChanged);
    clearAspectRatio();
    publish(m_isPlaying, false, &PlayerModel::isPlayingChanged);
    publish(m_title, defaultTitle, &PlayerModel::titleChanged);
    publish(m_youtubeContent, {}, &PlayerModel::youtubeContentChanged);
    publish(m_okVideoContent, {}, &PlayerModel::okVideoContentChanged);
    publish(m_isLiveStream, false, &PlayerModel::isLiveStreamChanged);
    hideBufferingIndicator();
}

void PlayerModel::togglePlayback()
{
    if (m_youtubeContent) {
        YouTubePlayerRegistry::shared().evaluate(QStringLiteral("zephToggle();"));
        publish(m_isPlaying, !m_isPlaying, &PlayerModel::isPlayingChanged);
    } else if (m_okVideoContent) {
        OKVideoPlayerRegistry::shared().evaluate(
            onOKVideo(QStringLiteral("v.paused?v.play():v.pause();")));
        publish(m_isPlaying, !m_isPlaying, &PlayerModel::isPlayingChanged);
    } else if (m_player.currentItem()) {
        if (m_player.rate() <= 0)
            m_player.play();
        else
            m_player.pause();
        publish(m_isPlaying, m_player.rate() > 0, &PlayerModel::isPlayingChanged);
    } else {
        replayLastSourceOrShowToast();
    }
}

void PlayerModel::skip(double seconds)
{
    if (!std::isfinite(seconds))
        return;
    if (m_youtubeContent) {
        YouTubePlayerRegistry::shared().evaluate(
            QStringLiteral("zephSkip(%1);").arg(javaScriptNumber(seconds)));
    } else if (m_okVideoContent) {
        OKVideoPlayerRegistry::shared().evaluate(
            onOKVideo(QStringLiteral("v.currentTime=Math.max(0,v.currentTime+(%1));")
                          .arg(javaScriptNumber(seconds))));
    } else {
        m_player.seek(std::max(std::min(m_currentTime + seconds, m_duration), 0.0));
    }
}

void PlayerModel::toggleMute()
{
    publish(m_isMuted, !m_isMuted, &PlayerModel::isMutedChanged);
    applyMute();
}

void PlayerModel::applyMute()
{
    if (m_youtubeContent)
        YouTubePlayerRegistry::shared().setMuted(m_isMuted);
    else if (m_okVideoContent)
        OKVideoPlayerRegistry::shared().setMuted(m_isMuted);
    else
        m_player.setMuted(m_isMuted);
}

void PlayerModel::setVolume(double value)
{
    if (std::isnan(value))
        return;
    publish(m_volume, std::max(0.0, std::min(value, 1.0)), &PlayerModel::volumeChanged);
    publish(m_isMuted, m_volume == 0, &PlayerModel::isMutedChanged);
    applyVolume();
}

void PlayerModel::applyVolume()
{
    if (m_youtubeContent) {
        YouTubePlayerRegistry::shared().evaluate(
            QStringLiteral("zephSetVolume(%1);").arg(javaScriptNumber(m_volume)));
    } else if (m_okVideoContent) {
        OKVideoPlayerRegistry::shared().evaluate(onOKVideo(
            QStringLiteral("v.muted=false;v.volume=%1;").arg(javaScriptNumber(m_volume))));
    } else {
        m_player.setVolume(m_volume);
        m_player.setMuted(m_isMuted);
    }
}

// A page's player begins to play at full volume, whatever has been asked for until it was there.
void PlayerModel::bringPageUpToDate()
{
    if (m_volume < 1)
        applyVolume();
    if (m_isMuted)
        applyMute();
    if (m_isPlaying)
        return;
    if (m_youtubeContent)
        YouTubePlayerRegistry::shared().evaluate(QStringLiteral("player.pauseVideo();"));
    else if (m_okVideoContent)
        OKVideoPlayerRegistry::shared().evaluate(onOKVideo(QStringLiteral("v.pause();")));
}

void PlayerModel::updateStreamTitle(const QString &name)
{
    if (m_isLiveStream)
        publish(m_title, trimmedOrNothing(name).value_or(defaultTitle), &PlayerModel::titleChanged);
}

QVariant PlayerModel::youtubeContentValue() const
{
    return m_youtubeContent ? QVariant::fromValue(*m_youtubeContent) : QVariant();
}

QVariant PlayerModel::okVideoContentValue() const
{
    return m_okVideoContent ? QVariant::fromValue(*m_okVideoContent) : QVariant();
}

void PlayerModel::observeTime(double seconds)
{
    if (m_youtubeContent || m_okVideoContent)
        return;
    publish(m_currentTime, finiteOrZero(seconds), &PlayerModel::currentTimeChanged);
    const MediaItem *item = m_player.currentItem();
    if (item)
        publish(m_duration, finiteOrZero(item->duration()), &PlayerModel::durationChanged);
    publish(m_isPlaying, m_player.rate() > 0, &PlayerModel::isPlayingChanged);
    if (item && item->presentationSize().width() > 0 && item->presentationSize().height() > 0)
        publishAspectRatio(item->presentationSize().width() / item->presentationSize().height());
}

void PlayerModel::publishAspectRatio(double ratio)
{
    const bool measured = m_videoAspectMediaLoadID == m_mediaLoadID;
    if (measured && std::abs(ratio - m_videoAspectRatio) <= 0.001)
        return;
    publish(m_videoAspectRatio, ratio, &PlayerModel::videoAspectRatioChanged);
    publish(m_videoAspectMediaLoadID, m_mediaLoadID, &PlayerModel::videoAspectMediaLoadIDChanged);
}

void PlayerModel::clearAspectRatio()
{
    publish(m_videoAspectRatio, 0.0, &PlayerModel::videoAspectRatioChanged);
    publish(m_videoAspectMediaLoadID, {}, &PlayerModel::videoAspectMediaLoadIDChanged);
}

} // namespace zeph
