#include "platform/VideoLayer.h"

#include "platform/MediaItemVideoOutput.h"
#include "platform/MediaPlayer.h"
#include "platform/VideoNode.h"

#include <QQuickWindow>
#include <QRunnable>

namespace zeph {

VideoLayer::VideoLayer(QQuickItem *parent) : QQuickItem(parent)
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
        m_player->videoOutputLost();
    }
    m_player = player;
    if (m_player) {
        // The renderer is made when there is an engine that it can draw from.
        connect(m_player, &MediaPlayer::engineReady, this, &QQuickItem::update);
        connect(
            m_player, &MediaPlayer::currentItemChanged, this, &VideoLayer::onCurrentItemChanged);
        connect(m_player, &MediaPlayer::pictureGeometryChanged, this, &QQuickItem::update);
        m_player->attachVideoOutput();
    }
    followCurrentItem();
}

void VideoLayer::setGravity(VideoGravity gravity)
{
    if (gravity == m_gravity)
        return;
    m_gravity = gravity;
    update();
}

// The main thread stands still while this runs, so the player may be looked at; it may not be
// called, because what it does in answer belongs in the main thread.
QSGNode *VideoLayer::updatePaintNode(QSGNode *node, UpdatePaintNodeData *)
{
    auto *video = static_cast<VideoNode *>(node);
    const std::shared_ptr<MpvHandle> engine = m_player ? m_player->engine() : nullptr;
    if (video && video->canvas().engine() != engine) {
        delete video;
        video = nullptr;
    }
    if (!engine || width() < 1 || height() < 1)
        return video;

    if (!video) {
        std::unique_ptr<VideoCanvas> canvas = createCanvas();
        if (!canvas) {
            QMetaObject::invokeMethod(
                m_player, &MediaPlayer::videoOutputLost, Qt::QueuedConnection);
            return nullptr;
        }
        video = new VideoNode(window(), std::move(canvas));
        connect(
            video, &VideoNode::pictureDue, this,
            [this, node = QPointer(video)] { onPictureDue(node); }, Qt::QueuedConnection);
        connect(video, &VideoNode::newPictureDue, this, &VideoLayer::onNewPictureDue,
            Qt::QueuedConnection);
        connect(
            video, &VideoNode::pictureCopied, this, &VideoLayer::deliverCopy, Qt::QueuedConnection);
        connect(video, &QObject::destroyed, m_player, &MediaPlayer::videoOutputLost,
            Qt::QueuedConnection);
    }
    if (!m_player->hasVideoOutput()) {
        const auto ready = [player = m_player.data(), openGL = video->canvas().usesOpenGL()] {
            player->videoOutputReady(openGL);
        };
        QMetaObject::invokeMethod(m_player, ready, Qt::QueuedConnection);
    }
    video->setGeometry({ .layer = size(),
        .picture = pictureSize(),
        .devicePixelRatio = window()->effectiveDevicePixelRatio(),
        .rotation = m_player->pictureRotation(),
        .isOnPixels = m_gravity == VideoGravity::ResizeAspect });
    const MediaItem *item = m_player->currentItem();
    video->setPictureShown(item && item->hasPicture());
    MediaItemVideoOutput *output = item ? item->videoOutput() : nullptr;
    if (output)
        connect(output, &MediaItemVideoOutput::copyWanted, this, &QQuickItem::update,
            Qt::UniqueConnection);
    video->setTap(output ? output->tap() : nullptr);
    return video;
}

std::unique_ptr<VideoCanvas> VideoLayer::createCanvas() const
{
    if (window()->rendererInterface()->graphicsApi() != QSGRendererInterface::OpenGL)
        return nullptr;
    return VideoCanvas::create(m_player->engine());
}

// The engine letterboxes by itself. To cover the layer it would have to be told, and would do so
// some pictures later: it gets a canvas of the picture's own shape instead.
QSizeF VideoLayer::pictureSize() const
{
    const MediaItem *item = m_player->currentItem();
    if (m_gravity == VideoGravity::ResizeAspect || !item || item->presentationSize().isEmpty())
        return size();
    return item->presentationSize().scaled(size(), Qt::KeepAspectRatioByExpanding);
}

void VideoLayer::onCurrentItemChanged()
{
    m_awaitsFirstPicture = true;
    followCurrentItem();
}

void VideoLayer::followCurrentItem()
{
    if (const MediaItem *item = m_player ? m_player->currentItem() : nullptr)
        connect(
            item, &MediaItem::hasPictureChanged, this, &QQuickItem::update, Qt::UniqueConnection);
    update();
}

// What the engine wants drawn while it goes from one item to the next is the last picture of the
// item before, several times. Frames for that would be in the way of the first of the new item.
void VideoLayer::onPictureDue(const QPointer<VideoNode> &node)
{
    if (!m_awaitsFirstPicture || !window()) {
        update();
        return;
    }
    const auto look = [node] {
        if (node)
            node->lookForNewPicture();
    };
    window()->scheduleRenderJob(QRunnable::create(look), QQuickWindow::NoStage);
}

void VideoLayer::onNewPictureDue()
{
    m_awaitsFirstPicture = false;
    update();
}

void VideoLayer::deliverCopy()
{
    const MediaItem *item = m_player ? m_player->currentItem() : nullptr;
    if (item && item->videoOutput())
        item->videoOutput()->deliverCopy();
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
