// The smart mode's timer, and what it does.
#include "platform/FaceDetector.h"
#include "platform/MediaItemVideoOutput.h"
#include "surface/PlayerHostingView.h"
#include "surface/SmartReframe.h"

#include <utility>

namespace zeph {

void PlayerHostingView::setFaceDetector(std::shared_ptr<FaceDetector> detector)
{
    m_faceDetector = std::move(detector);
}

void PlayerHostingView::updateSmartTimer()
{
    m_smartTimer.stop();
    if (m_displayMode != PortraitDisplayMode::Smart) {
        if (m_videoOutput)
            m_videoOutput->cancelCopy();
        return;
    }
    if (!m_faceDetector)
        m_faceDetector = FaceDetector::shared();
    m_smartTimer.start();
}

void PlayerHostingView::trackLargestFace()
{
    if (m_displayMode != PortraitDisplayMode::Smart || !player() || !m_videoOutput)
        return;
    // Until the detector is loaded, the picture stays new.
    if (!m_faceDetector->isReady() || !m_videoOutput->hasNewPixelBuffer())
        return;
    m_videoOutput->copyPixelBuffer([this](const QImage &picture) { followLargestFace(picture); });
}

void PlayerHostingView::followLargestFace(const QImage &picture)
{
    const std::optional<QRectF> face = largestFace(m_faceDetector->faces(picture));
    m_horizontalPan = easedPan(m_horizontalPan, targetPan(face));
    updatePlayerFrame();
}

} // namespace zeph
