// The native video surface.
#pragma once

#include "platform/MediaPlayer.h"

#include <QQmlEngine>
#include <QQuickItem>

namespace zeph {

class VideoLayer;

/// Places the picture of a media player within its own bounds: whole, letterboxed. Main thread
/// only.
class PlayerHostingView : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(zeph::MediaPlayer *player READ player WRITE setPlayer NOTIFY playerChanged)

public:
    explicit PlayerHostingView(QQuickItem *parent = nullptr);

    MediaPlayer *player() const;
    void setPlayer(MediaPlayer *player);

Q_SIGNALS:
    void playerChanged();

protected:
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;

private:
    void updatePlayerFrame();

    VideoLayer *const m_playerLayer; ///< A child item, destroyed with this one.
};

} // namespace zeph
