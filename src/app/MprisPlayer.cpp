#include "app/MprisPlayer.h"

#include "library/ContentView.h"

#include <QUrl>

#include <cmath>

namespace zeph {

namespace {

constexpr double microseconds = 1e6;

} // namespace

MprisPlayer::MprisPlayer(ContentView &view, Tell tell, QObject *parent)
    : QDBusAbstractAdaptor(parent), m_view(view), m_model(*view.model()), m_tell(std::move(tell))
{
    // The model may be in the midst of a change: it is asked when it has done.
    const auto tellWhen = [this](auto signal, const QString &property) {
        connect(
            &m_model, signal, this, [this, property] { this->tell(property); },
            Qt::QueuedConnection);
    };
    const QString status = QStringLiteral("PlaybackStatus");
    const QString metadata = QStringLiteral("Metadata");
    tellWhen(&PlayerModel::isPlayingChanged, status);
    for (const auto sourceChanged : { &PlayerModel::youtubeContentChanged,
             &PlayerModel::okVideoContentChanged, &PlayerModel::currentURLChanged }) {
        tellWhen(sourceChanged, status);
        tellWhen(sourceChanged, metadata);
    }
    tellWhen(&PlayerModel::titleChanged, metadata);
    tellWhen(&PlayerModel::mediaLoadIDChanged, metadata);
    tellWhen(&PlayerModel::durationChanged, metadata);
    tellWhen(&PlayerModel::durationChanged, QStringLiteral("CanSeek"));
    tellWhen(&PlayerModel::volumeChanged, QStringLiteral("Volume"));
    connect(&m_model, &PlayerModel::currentTimeChanged, this, &MprisPlayer::observeTime);
    m_sinceLastTime.start();
}

QString MprisPlayer::playbackStatus() const
{
    if (!m_model.hasSource())
        return QStringLiteral("Stopped");
    return m_model.isPlaying() ? QStringLiteral("Playing") : QStringLiteral("Paused");
}

QDBusObjectPath MprisPlayer::track() const
{
    if (!m_model.hasSource())
        return QDBusObjectPath(QStringLiteral("/org/mpris/MediaPlayer2/TrackList/NoTrack"));
    return QDBusObjectPath(
        QStringLiteral("/zeph/track/") + m_model.mediaLoadID().toString(QUuid::Id128));
}

QVariantMap MprisPlayer::metadata() const
{
    QVariantMap metadata { { QStringLiteral("mpris:trackid"), QVariant::fromValue(track()) } };
    if (!m_model.hasSource())
        return metadata;
    metadata[QStringLiteral("xesam:title")] = m_model.title();
    if (m_model.duration() > 0)
        metadata[QStringLiteral("mpris:length")] = qlonglong(m_model.duration() * microseconds);
    if (m_model.player()->currentItem())
        metadata[QStringLiteral("xesam:url")] = m_model.currentURL().toString(QUrl::FullyEncoded);
    return metadata;
}

double MprisPlayer::volume() const
{
    return m_model.volume();
}

void MprisPlayer::setVolume(double volume)
{
    m_model.setVolume(volume);
}

qlonglong MprisPlayer::position() const
{
    return qlonglong(m_model.currentTime() * microseconds);
}

bool MprisPlayer::canSeek() const
{
    return m_model.duration() > 0;
}

void MprisPlayer::Play()
{
    if (!m_model.isPlaying())
        m_model.togglePlayback();
}

void MprisPlayer::Pause()
{
    if (m_model.isPlaying())
        m_model.togglePlayback();
}

void MprisPlayer::PlayPause()
{
    m_model.togglePlayback();
}

void MprisPlayer::Stop()
{
    m_model.stop();
}

void MprisPlayer::Seek(qlonglong offset)
{
    m_model.skip(double(offset) / microseconds);
}

/// One that is past the end is to be ignored, and one for a track that plays no more.
void MprisPlayer::SetPosition(const QDBusObjectPath &forTrack, qlonglong position)
{
    const double seconds = double(position) / microseconds;
    if (forTrack == track() && seconds >= 0 && seconds <= m_model.duration())
        m_model.player()->seek(seconds);
}

void MprisPlayer::OpenUri(const QString &uri)
{
    if (const QUrl url(uri); url.isValid())
        m_view.openFromDesktop(url);
}

void MprisPlayer::tell(const QString &property)
{
    m_tell({ { property, this->property(property.toLatin1().constData()) } });
}

/// The desktop counts on by itself, unless it is told of a jump.
void MprisPlayer::observeTime()
{
    constexpr double jump = 1; // Seconds.
    const double passed = m_model.isPlaying() ? double(m_sinceLastTime.elapsed()) / 1000 : 0;
    const bool jumped = std::abs(m_model.currentTime() - m_lastTime - passed) > jump;
    m_lastTime = m_model.currentTime();
    m_sinceLastTime.start();
    if (jumped)
        Q_EMIT Seeked(position());
}

} // namespace zeph
