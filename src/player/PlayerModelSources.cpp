// Which source the model plays, and what it remembers of the last.
#include "player/PlayerModel.h"

#include <type_traits>

namespace zeph {

namespace {

constexpr quint64 nothingToPlayToastNanoseconds = 2'800'000'000;

} // namespace

void PlayerModel::show(const YouTubeContent &content, const QString &title)
{
    showWebContent(content, {}, title);
    m_lastPlayableSource = LastYouTube { content, title };
}

void PlayerModel::show(const OKVideoContent &content, const QString &title)
{
    showWebContent({}, content, title);
    m_lastPlayableSource = LastOKVideo { content, title };
}

void PlayerModel::showWebContent(const std::optional<YouTubeContent> &youtube,
    const std::optional<OKVideoContent> &okVideo, const QString &title)
{
    // A page that is there already stays, and goes on where it was paused.
    if (youtube == m_youtubeContent && okVideo == m_okVideoContent && !m_isPlaying)
        togglePlayback();
    m_player.pause();
    m_player.replaceCurrentItem(nullptr);
    publish(m_youtubeContent, youtube, &PlayerModel::youtubeContentChanged);
    publish(m_okVideoContent, okVideo, &PlayerModel::okVideoContentChanged);
    publish(m_title, title, &PlayerModel::titleChanged);
    publish(m_isLiveStream, false, &PlayerModel::isLiveStreamChanged);
    hideBufferingIndicator();
    publish(m_currentTime, 0.0, &PlayerModel::currentTimeChanged);
    publish(m_duration, 0.0, &PlayerModel::durationChanged);
    publish(m_isPlaying, true, &PlayerModel::isPlayingChanged);
}

void PlayerModel::clearNetworkStream()
{
    m_remoteRequestID = QUuid::createUuid();
    publish(m_playlist, {}, &PlayerModel::playlistChanged);
    publish(m_errorMessage, {}, &PlayerModel::errorMessageChanged);
    publish(m_isLoading, false, &PlayerModel::isLoadingChanged);
    discardLastRemoteSource();
    stop();
}

void PlayerModel::discardLastRemoteSource()
{
    if (!m_lastPlayableSource)
        return;
    const auto *media = std::get_if<LastMedia>(&*m_lastPlayableSource);
    if (!media || !media->url.isLocalFile())
        m_lastPlayableSource.reset();
}

void PlayerModel::replayLastSourceOrShowToast()
{
    if (!m_lastPlayableSource) {
        showToast(tr("No media or URL is available. Open a file or enter a stream URL."),
            nothingToPlayToastNanoseconds);
        return;
    }
    const auto replay = [this](const auto &source) {
        if constexpr (std::is_same_v<std::decay_t<decltype(source)>, LastMedia>)
            play(source.url, source.title, source.isLiveStream);
        else
            show(source.content, source.title);
    };
    // A copy: playing replaces what is remembered.
    std::visit(replay, LastPlayableSource(*m_lastPlayableSource));
}

} // namespace zeph
