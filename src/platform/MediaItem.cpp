#include "platform/MediaItem.h"

#include <cmath>
#include <utility>

namespace zeph {

MediaItem::MediaItem(QUrl url, QObject *parent)
    : QObject(parent)
    , m_url(std::move(url))
{
}

void MediaItem::setReadyToPlay(bool live)
{
    m_live = live;
    m_errorText.clear();
    setStatus(Status::ReadyToPlay);
}

void MediaItem::setFailed(const QString &errorText)
{
    m_errorText = errorText;
    setStatus(Status::Failed);
}

void MediaItem::setStatus(Status status)
{
    if (std::exchange(m_status, status) != status)
        Q_EMIT statusChanged();
}

void MediaItem::setDuration(double seconds)
{
    // A live stream reports what has been sent of it so far, which is not a length.
    const double duration = m_live || !std::isfinite(seconds) ? 0 : std::max(seconds, 0.0);
    if (std::exchange(m_duration, duration) != duration)
        Q_EMIT durationChanged();
}

void MediaItem::setPresentationSize(QSizeF size)
{
    if (std::exchange(m_presentationSize, size) != size)
        Q_EMIT presentationSizeChanged();
}

void MediaItem::setPlaybackBufferEmpty(bool empty)
{
    if (std::exchange(m_playbackBufferEmpty, empty) != empty)
        Q_EMIT playbackBufferEmptyChanged();
}

void MediaItem::setPlaybackLikelyToKeepUp(bool likely)
{
    if (std::exchange(m_playbackLikelyToKeepUp, likely) != likely)
        Q_EMIT playbackLikelyToKeepUpChanged();
}

} // namespace zeph
