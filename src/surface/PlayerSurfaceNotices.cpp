#include "surface/PlayerSurfaceNotices.h"

namespace zeph {

void PlayerSurfaceNotices::setModel(PlayerModel *model)
{
    m_model = model;
    for (auto signal : { &PlayerModel::youtubeContentChanged, &PlayerModel::okVideoContentChanged,
             &PlayerModel::isLiveStreamChanged, &PlayerModel::isBufferingChanged })
        connect(model, signal, this, &PlayerSurfaceNotices::changed);
    connect(
        model->player(), &MediaPlayer::currentItemChanged, this, &PlayerSurfaceNotices::changed);
    Q_EMIT modelChanged();
    Q_EMIT changed();
}

bool PlayerSurfaceNotices::invitesToOpen() const
{
    return m_model && !m_model->hasSource();
}

bool PlayerSurfaceNotices::tellsOfBuffering() const
{
    return m_model && m_model->isLiveStream() && m_model->isBuffering();
}

} // namespace zeph
