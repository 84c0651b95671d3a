// When the buffering indicator shows: only for a live stream, and only once it has stalled for a
// moment.
#include "player/PlayerModel.h"

namespace zeph {

namespace {

constexpr std::chrono::milliseconds indicatorDelay { 450 };

} // namespace

// The slots run after the item has settled, not within its change.
void PlayerModel::observeBuffering(const MediaItem &item)
{
    connect(&item, &MediaItem::playbackBufferEmptyChanged, this,
        &PlayerModel::refreshBufferingState, Qt::QueuedConnection);
    connect(&item, &MediaItem::playbackLikelyToKeepUpChanged, this,
        &PlayerModel::refreshBufferingState, Qt::QueuedConnection);
    QMetaObject::invokeMethod(this, &PlayerModel::refreshBufferingState, Qt::QueuedConnection);
}

void PlayerModel::refreshBufferingState()
{
    if (m_isLiveStream && m_player.currentItem() && isWaitingToPlay())
        showBufferingIndicatorAfterDelay();
    else
        hideBufferingIndicator();
}

bool PlayerModel::isWaitingToPlay() const
{
    return m_player.timeControlStatus()
        == MediaPlayer::TimeControlStatus::WaitingToPlayAtSpecifiedRate;
}

void PlayerModel::showBufferingIndicatorAfterDelay()
{
    if (m_isBuffering || m_bufferingIndicatorTask.isPending())
        return;
    m_bufferingIndicatorTask.start(indicatorDelay, [this] {
        if (m_isLiveStream && isWaitingToPlay())
            publish(m_isBuffering, true, &PlayerModel::isBufferingChanged);
    });
}

void PlayerModel::hideBufferingIndicator()
{
    m_bufferingIndicatorTask.cancel();
    publish(m_isBuffering, false, &PlayerModel::isBufferingChanged);
}

} // namespace zeph
