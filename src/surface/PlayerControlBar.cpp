#include "surface/PlayerControlBar.h"

#include "platform/FullScreen.h"
#include "surface/TimeText.h"

#include <QGuiApplication>

#include <algorithm>
#include <utility>

namespace zeph {

PlayerControlBar::PlayerControlBar(PlayerModel &model, QObject *parent)
    : QObject(parent), m_model(model)
{
    connect(&model, &PlayerModel::isPlayingChanged, this, &PlayerControlBar::playChanged);
    connect(&model, &PlayerModel::isMutedChanged, this, &PlayerControlBar::muteChanged);
    connect(&model, &PlayerModel::currentTimeChanged, this, &PlayerControlBar::elapsedTimeChanged);
    connect(
        &model, &PlayerModel::currentTimeChanged, this, &PlayerControlBar::remainingTimeChanged);
    connect(&model, &PlayerModel::currentTimeChanged, this, &PlayerControlBar::seekPositionChanged);
    connect(&model, &PlayerModel::durationChanged, this, &PlayerControlBar::remainingTimeChanged);
    // The range first: a position past its end would be cut off.
    connect(&model, &PlayerModel::durationChanged, this, &PlayerControlBar::seekRangeChanged);
    connect(&model, &PlayerModel::durationChanged, this, &PlayerControlBar::seekPositionChanged);
}

QString PlayerControlBar::playSymbol() const
{
    return m_model.isPlaying() ? QStringLiteral("pause.fill") : QStringLiteral("play.fill");
}

QString PlayerControlBar::playHelp() const
{
    return m_model.isPlaying() ? tr("Pause") : tr("Play");
}

QString PlayerControlBar::muteSymbol() const
{
    return m_model.isMuted() ? QStringLiteral("speaker.slash.fill")
                             : QStringLiteral("speaker.wave.2.fill");
}

QString PlayerControlBar::elapsedTime() const
{
    return time(m_model.currentTime());
}

QString PlayerControlBar::remainingTime() const
{
    return QChar(u'−') + time(std::max(m_model.duration() - m_model.currentTime(), 0.0));
}

void PlayerControlBar::setSeeking(bool seeking)
{
    if (std::exchange(m_seeking, seeking) == seeking)
        return;
    if (seeking)
        m_seekValue = m_model.currentTime();
    else
        m_model.player()->seek(m_seekValue);
    Q_EMIT seekingChanged();
    Q_EMIT seekPositionChanged();
}

double PlayerControlBar::seekRange() const
{
    return std::max(m_model.duration(), 1.0);
}

double PlayerControlBar::seekPosition() const
{
    return std::clamp(m_seeking ? m_seekValue : m_model.currentTime(), 0.0, seekRange());
}

void PlayerControlBar::moveSeekSlider(double seconds)
{
    if (seconds == seekPosition())
        return;
    if (!m_seeking) {
        m_model.player()->seek(seconds);
        return;
    }
    m_seekValue = seconds;
    Q_EMIT seekPositionChanged();
}

void PlayerControlBar::setVolume(double volume)
{
    if (volume != m_model.volume())
        m_model.setVolume(volume);
}

void PlayerControlBar::setPortraitMode(PortraitDisplayMode mode)
{
    if (std::exchange(m_portraitMode, mode) != mode)
        Q_EMIT portraitModeChanged();
}

void PlayerControlBar::selectDisplayMode(PortraitDisplayMode mode)
{
    setPortraitMode(mode);
    if (mode != PortraitDisplayMode::Normal)
        setShowSidebar(false, sidebarHideAnimation);
}

void PlayerControlBar::setShowSidebar(bool show, std::chrono::milliseconds animation)
{
    if (show == m_showSidebar)
        return;
    m_sidebarAnimation = animation;
    m_showSidebar = show;
    Q_EMIT showSidebarChanged();
}

void PlayerControlBar::toggleSidebar()
{
    setShowSidebar(!m_showSidebar, sidebarToggleAnimation);
}

void PlayerControlBar::toggleFullScreen()
{
    if (QWindow *keyWindow = QGuiApplication::focusWindow())
        zeph::toggleFullScreen(*keyWindow);
}

} // namespace zeph
