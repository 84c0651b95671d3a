#include "platform/MediaItemVideoOutput.h"

#include "platform/VideoTap.h"

#include <utility>

namespace zeph {

MediaItemVideoOutput::MediaItemVideoOutput(QSize copySize)
    : m_tap(std::make_shared<VideoTap>(copySize))
{
}

MediaItemVideoOutput::~MediaItemVideoOutput() = default;

bool MediaItemVideoOutput::hasNewPixelBuffer() const
{
    return m_tap->hasNewPicture();
}

void MediaItemVideoOutput::copyPixelBuffer(std::function<void(const QImage &)> receive)
{
    m_receive = std::move(receive);
    m_tap->wantCopy();
    Q_EMIT copyWanted();
}

void MediaItemVideoOutput::cancelCopy()
{
    m_receive = {};
    m_tap->dropCopy();
}

void MediaItemVideoOutput::deliverCopy()
{
    const QImage copy = m_tap->takeCopy();
    if (copy.isNull())
        return;
    // It may ask for the next one.
    if (const auto receive = std::exchange(m_receive, {}))
        receive(copy);
}

} // namespace zeph
