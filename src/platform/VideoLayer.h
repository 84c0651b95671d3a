// Where a media player's picture appears in a scene.
#pragma once

#include <QPointer>
#include <QQuickItem>

#include <memory>

namespace zeph {

class MediaPlayer;
class VideoCanvas;
class VideoNode;

/// How a picture of another shape than its layer is fitted in.
enum class VideoGravity {
    ResizeAspect, ///< Whole, letterboxed in black.
    ResizeAspectFill, ///< Covering the layer, the same cut off on both sides.
};

/// A scene item that shows the picture of a `MediaPlayer` in its own size.
///
/// The window must render with OpenGL; under another backend the layer stays empty, and the player
/// plays without it. Main thread only, apart from the scene graph's own calls.
class VideoLayer : public QQuickItem {
    Q_OBJECT

public:
    explicit VideoLayer(QQuickItem *parent = nullptr);
    ~VideoLayer() override;

    MediaPlayer *player() const { return m_player; }
    /// Null detaches. A player has at most one layer.
    void setPlayer(MediaPlayer *player);

    VideoGravity gravity() const { return m_gravity; }
    void setGravity(VideoGravity gravity);

protected:
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *data) override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;

private:
    std::unique_ptr<VideoCanvas> createCanvas() const;
    QSizeF pictureSize() const;
    void onCurrentItemChanged();
    void followCurrentItem();
    void onPictureDue(const QPointer<VideoNode> &node);
    void onNewPictureDue();
    void deliverCopy();

    QPointer<MediaPlayer> m_player;
    VideoGravity m_gravity = VideoGravity::ResizeAspect;
    bool m_awaitsFirstPicture = false;
};

} // namespace zeph
