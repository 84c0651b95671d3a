#include "platform/VideoLayer.h"

#include "platform/MediaPlayer.h"
#include "platform/VideoRenderer.h"

#include <QQuickWindow>

namespace zeph {

VideoLayer::VideoLayer(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

VideoLayer::~VideoLayer()
{
    setPlayer(nullptr);
}

void VideoLayer::setPlayer(MediaPlayer *player)
{
    if (m_player == player)
        return;
    if (m_player) {
        m_player->disconnect(this);
        m_player->detachVideoOutput();
    }
    m_player = player;
    if (m_player) {
        // The renderer is made when there is an engine that it can draw from.
        connect(m_player, &MediaPlayer::engineReady, this, &QQuickItem::update);
        connect(m_player, &MediaPlayer::currentItemChanged, this, &QQuickItem::update);
        m_player->attachVideoOutput();
    }
    update();
}

QSGNode *VideoLayer::updatePaintNode(QSGNode *node, UpdatePaintNodeData *)
{
    auto *renderer = static_cast<VideoRenderer *>(node);
    const std::shared_ptr<MpvHandle> engine = m_player ? m_player->engine() : nullptr;
    if (renderer && renderer->engine() != engine) {
        delete renderer;
        renderer = nullptr;
    }
    if (!engine || width() < 1 || height() < 1)
        return renderer;

    if (!renderer) {
        // Signals of the renderer come from the render thread or the engine's, so they are queued.
        renderer = new VideoRenderer(window(), engine);
        connect(renderer, &VideoRenderer::frameReady, this, &QQuickItem::update, Qt::QueuedConnection);
        connect(renderer, &QObject::destroyed, m_player, &MediaPlayer::videoOutputLost,
                Qt::QueuedConnection);
    }
    // The main thread stands still while this runs, so the player may be looked at.
    if (m_player->awaitsVideoOutput())
        QMetaObject::invokeMethod(m_player, &MediaPlayer::videoOutputReady, Qt::QueuedConnection);
    renderer->setGeometry(boundingRect(), window()->effectiveDevicePixelRatio());
    return renderer;
}

void VideoLayer::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        update();
}

void VideoLayer::itemChange(ItemChange change, const ItemChangeData &value)
{
    if (change == ItemDevicePixelRatioHasChanged)
        update();
    QQuickItem::itemChange(change, value);
}

} // namespace zeph
