// Where the media player is in its item: seeking, and telling the time.
#include "platform/MediaPlayer.h"
#include "platform/MediaPlayerTicket.h"
#include "platform/MpvClient.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zeph {

void MediaPlayer::seek(double seconds)
{
    if (!m_item || !std::isfinite(seconds))
        return;
    const double target = std::max(seconds, 0.0);
    if (m_stage == Stage::Open || m_stage == Stage::Ended)
        seekInItem(target);
    else if (m_stage == Stage::Held || m_stage == Stage::Opening)
        m_seekWhenOpen = target;
}

void MediaPlayer::seekInItem(double seconds)
{
    if (!m_reported.seekable)
        return;
    // The engine shows the first picture at or after the time that it is given, less 5 ms. The
    // picture of a time is the one that began before it, up to one frame earlier.
    constexpr double engineTolerance = 0.005;
    constexpr double timestampRounding = 0.001;
    double target = seconds;
    if (m_reported.framesPerSecond > 0)
        target -= 1 / m_reported.framesPerSecond - engineTolerance - timestampRounding;
    target = std::max(target, 0.0);

    ++m_jumps;
    m_seekTarget = seconds;
    m_reported.ended = false;
    setStage(Stage::Open);
    setCurrentTime(seconds);
    m_client->setNumber("hr-seek-demuxer-offset", m_seekLead);
    m_client->command({ "seek", QByteArray::number(target, 'f', 6), "absolute+exact" },
        ticket(Purpose::Seek, m_jumps));
}

// The engine has nothing to seek in any more.
void MediaPlayer::abandonSeek()
{
    m_seekTarget.reset();
    // The item may still be at the end that it was to leave.
    observeEnd();
    requestPosition();
}

// A container without an index (MPEG-TS is one) cannot tell where the last key picture before a
// time is: reading starts somewhere before it, and the first picture may come too late. Then
// reading has to start earlier, for the rest of the item.
void MediaPlayer::landed(double position)
{
    constexpr double shortestLead = 1;
    constexpr double longestLead = 64;
    constexpr double lateness = 0.1;
    const bool late = m_seekTarget && position > *m_seekTarget + lateness;
    const bool earlierHelps = position != m_lastLanding && m_seekLead < longestLead;
    m_lastLanding = position;
    if (late && earlierHelps && !m_item->isLive()) {
        m_seekLead = std::max(m_seekLead * 4, shortestLead);
        seekInItem(*m_seekTarget);
    } else {
        m_seekTarget.reset();
        setCurrentTime(position);
    }
}

void MediaPlayer::onPlaybackRestarted()
{
    if (!m_entryStarted)
        return;
    m_reported.ended = false;
    observeEnd();
    if (!m_seekTarget)
        requestPosition();
    else if (m_startedJump == m_jumps && m_stage == Stage::Open)
        m_client->request(ticket(Purpose::Landing, m_jumps), "time-pos", MPV_FORMAT_DOUBLE);
}

void MediaPlayer::requestPosition()
{
    // Until the engine has begun with a seek, it answers with where it was before.
    const bool seekAwaited = m_seekTarget && m_startedJump != m_jumps;
    if (m_client && m_stage == Stage::Open && !seekAwaited)
        m_client->request(ticket(Purpose::Position, m_jumps), "time-pos", MPV_FORMAT_DOUBLE);
}

void MediaPlayer::setCurrentTime(double seconds)
{
    m_currentTime = seconds;
    notifyTimeObservers();
}

int MediaPlayer::addPeriodicTimeObserver(TimeObserver observer)
{
    m_observers.push_back({ ++m_lastObserverToken, std::move(observer) });
    return m_lastObserverToken;
}

void MediaPlayer::removeTimeObserver(int token)
{
    std::erase_if(
        m_observers, [token](const Observer &observer) { return observer.token == token; });
}

// Later, and once for several causes: an observer sees the player between two changes, never
// within.
void MediaPlayer::notifyTimeObservers()
{
    if (std::exchange(m_observersDue, true))
        return;
    QMetaObject::invokeMethod(this, &MediaPlayer::callTimeObservers, Qt::QueuedConnection);
}

void MediaPlayer::callTimeObservers()
{
    m_observersDue = false;
    // A copy: an observer may remove itself.
    const std::vector<Observer> observers = m_observers;
    for (const Observer &observer : observers)
        observer.call(m_currentTime);
}

} // namespace zeph
