#include "surface/PlayerHostingView.h"

#include "platform/FaceDetector.h"
#include "platform/MediaItemVideoOutput.h"
#include "platform/VideoLayer.h"
#include "surface/PlayerLayerGeometry.h"

#include <QQuickWindow>
#include <QSGRectangleNode>

#include <numbers>

namespace zeph {

PlayerHostingView::PlayerHostingView(QQuickItem *parent)
    : QQuickItem(parent)
    , m_cropLayer(new QQuickItem(this))
    , m_playerLayer(new VideoLayer(m_cropLayer))
{
    setFlag(ItemHasContents);
    setClip(true);
    setAcceptedMouseButtons(Qt::LeftButton);
    m_smartTimer.setInterval(smartInterval);
    m_smartTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_smartTimer, &QTimer::timeout, this, &PlayerHostingView::trackLargestFace);
}

PlayerHostingView::~PlayerHostingView()
{
    detachVideoOutput();
}

MediaPlayer *PlayerHostingView::player() const
{
    return m_playerLayer->player();
}

void PlayerHostingView::setPlayer(MediaPlayer *player)
{
    m_playerLayer->setPlayer(player);
    tapCurrentItem();
    updatePlayerFrame();
}

void PlayerHostingView::tapCurrentItem()
{
    MediaItem *item = player() ? player()->currentItem() : nullptr;
    if (item == m_observedItem)
        return;
    detachVideoOutput();
    m_observedItem = item;
    m_videoOutput = std::make_unique<MediaItemVideoOutput>(FaceDetector::pictureSize);
    if (item)
        item->setVideoOutput(m_videoOutput.get());
}

// Another view may have attached its own.
void PlayerHostingView::detachVideoOutput()
{
    if (m_observedItem && m_observedItem->videoOutput() == m_videoOutput.get())
        m_observedItem->setVideoOutput(nullptr);
}

void PlayerHostingView::setDisplayMode(PortraitDisplayMode mode)
{
    if (mode != m_displayMode) {
        m_displayMode = mode;
        if (mode == PortraitDisplayMode::Fill || mode == PortraitDisplayMode::Rotate)
            m_horizontalPan = 0;
        updateSmartTimer();
    }
    applyDisplayMode();
}

void PlayerHostingView::setFillScreen(bool fillScreen)
{
    if (fillScreen == m_fillScreen)
        return;
    m_fillScreen = fillScreen;
    applyDisplayMode();
}

void PlayerHostingView::applyDisplayMode()
{
    m_playerLayer->setGravity(m_displayMode == PortraitDisplayMode::Normal
            ? VideoGravity::ResizeAspect
            : VideoGravity::ResizeAspectFill);
    updatePlayerFrame();
}

void PlayerHostingView::updatePlayerFrame()
{
    const MediaItem *item = player() ? player()->currentItem() : nullptr;
    const PlayerLayerGeometry geometry = playerLayerGeometry(m_displayMode, boundingRect(),
        item ? item->presentationSize() : QSizeF(0, 0), m_horizontalPan);
    m_cropLayer->setPosition(geometry.crop.topLeft());
    m_cropLayer->setSize(geometry.crop.size());
    m_cropLayer->setClip(geometry.masksToBounds);
    m_playerLayer->setPosition(geometry.player.topLeft());
    m_playerLayer->setSize(geometry.player.size());
    // Items turn clockwise, in degrees.
    m_playerLayer->setRotation(-geometry.rotation * 180 / std::numbers::pi);
}

QSGNode *PlayerHostingView::updatePaintNode(QSGNode *node, UpdatePaintNodeData *)
{
    auto *background = static_cast<QSGRectangleNode *>(node);
    if (!background) {
        // As rectangles of QML are drawn: by a shader that the window has anyway.
        background = window()->createRectangleNode();
        background->setColor(Qt::black);
    }
    background->setRect(boundingRect());
    return background;
}

void PlayerHostingView::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() == oldGeometry.size())
        return;
    update();
    updatePlayerFrame();
}

} // namespace zeph
