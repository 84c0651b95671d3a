#include "surface/PlayerHostingView.h"

#include "platform/VideoLayer.h"

namespace zeph {

PlayerHostingView::PlayerHostingView(QQuickItem *parent)
    : QQuickItem(parent), m_playerLayer(new VideoLayer(this))
{
}

MediaPlayer *PlayerHostingView::player() const
{
    return m_playerLayer->player();
}

void PlayerHostingView::setPlayer(MediaPlayer *player)
{
    if (player == m_playerLayer->player())
        return;
    m_playerLayer->setPlayer(player);
    Q_EMIT playerChanged();
}

void PlayerHostingView::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        updatePlayerFrame();
}

void PlayerHostingView::updatePlayerFrame()
{
    m_playerLayer->setSize(size());
}

} // namespace zeph
