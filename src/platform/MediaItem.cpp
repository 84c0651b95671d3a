#include "platform/MediaItem.h"

#include "platform/MediaItemVideoOutput.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zeph {

MediaItem::MediaItem(QUrl url, QObject *parent) : QObject(parent), m_url(std::move(url)) { }

MediaItem::~MediaItem() = default;

MediaItemVideoOutput *MediaItem::videoOutput() const
{
    return m_videoOutput;
}

void MediaItem::setVideoOutput(MediaItemVideoOutput *output)
{
    m_videoOutput = output;
}

void MediaItem::update(State state)
{
    // A live stream reports what has been sent of it so far, which is not a length.
    if (state.isLive || !std::isfinite(state.duration))
        state.duration = 0;
    state.duration = std::max(state.duration, 0.0);

    const State old = std::exchange(m_state, std::move(state));
    if (old.status != m_state.status)
        Q_EMIT statusChanged();
    if (old.duration != m_state.duration)
        Q_EMIT durationChanged();
    if (old.presentationSize != m_state.presentationSize)
        Q_EMIT presentationSizeChanged();
    if (old.hasPicture != m_state.hasPicture)
        Q_EMIT hasPictureChanged();
    if (old.isPlaybackBufferEmpty != m_state.isPlaybackBufferEmpty)
        Q_EMIT playbackBufferEmptyChanged();
    if (old.isPlaybackLikelyToKeepUp != m_state.isPlaybackLikelyToKeepUp)
        Q_EMIT playbackLikelyToKeepUpChanged();
}

} // namespace zeph
