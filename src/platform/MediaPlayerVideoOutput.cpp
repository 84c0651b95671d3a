// The media player and what shows its picture.
#include "platform/MediaPlayer.h"
#include "platform/MpvClient.h"

#include <utility>

namespace zeph {

std::shared_ptr<MpvHandle> MediaPlayer::engine() const
{
    return m_client ? m_client->handle() : nullptr;
}

int MediaPlayer::pictureRotation() const
{
    return m_engineTurnsPictures ? 0 : int(m_reported.trackRotation);
}

void MediaPlayer::attachVideoOutput()
{
    m_videoOutput = VideoOutput::Awaited;
}

void MediaPlayer::videoOutputReady(bool openGL)
{
    m_videoOutput = VideoOutput::Ready;
    // Without OpenGL there is no GPU, and looking for its decoders only costs time.
    m_client->setText("hwdec", openGL ? "auto-safe" : "no");
    setEngineTurnsPictures(openGL);
    m_client->setText("vo", "libmpv");
    if (m_stage == Stage::Held)
        openItem();
}

void MediaPlayer::videoOutputLost()
{
    if (std::exchange(m_videoOutput, VideoOutput::None) == VideoOutput::None || !m_client)
        return;
    m_client->setText("vo", "null");
    setEngineTurnsPictures(true);
    if (m_stage == Stage::Held)
        openItem();
}

// Drawing on the CPU, libmpv ends the process when it is to turn a picture.
void MediaPlayer::setEngineTurnsPictures(bool turns)
{
    m_engineTurnsPictures = turns;
    m_client->setText("video-rotate", turns ? "0" : "no");
    Q_EMIT pictureGeometryChanged();
}

} // namespace zeph
