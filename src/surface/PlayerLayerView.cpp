#include "surface/PlayerLayerView.h"

#include "platform/PlayerSurfaceRegistry.h"

namespace zeph {

PlayerLayerView::PlayerLayerView(QQuickItem *parent)
    : QQuickItem(parent), m_hostingView(new PlayerHostingView(this))
{
    updateHostingView();
}

PlayerLayerView::~PlayerLayerView()
{
    PlayerSurfaceRegistry &registry = PlayerSurfaceRegistry::shared();
    if (registry.view() == m_hostingView)
        registry.setView(nullptr);
}

void PlayerLayerView::setPlayer(MediaPlayer *player)
{
    if (player == m_player)
        return;
    if (m_player)
        m_player->disconnect(this);
    m_player = player;
    if (m_player) {
        connect(
            m_player, &MediaPlayer::currentItemChanged, this, &PlayerLayerView::followCurrentItem);
    }
    followCurrentItem();
    Q_EMIT playerChanged();
}

void PlayerLayerView::followCurrentItem()
{
    if (const MediaItem *item = m_player ? m_player->currentItem() : nullptr) {
        connect(item, &MediaItem::presentationSizeChanged, this,
            &PlayerLayerView::updateHostingView, Qt::UniqueConnection);
    }
    updateHostingView();
}

void PlayerLayerView::setFillScreen(bool fillScreen)
{
    if (fillScreen == m_fillScreen)
        return;
    m_fillScreen = fillScreen;
    updateHostingView();
    Q_EMIT fillScreenChanged();
}

void PlayerLayerView::setDisplayMode(PortraitDisplayMode mode)
{
    if (mode == m_displayMode)
        return;
    m_displayMode = mode;
    updateHostingView();
    Q_EMIT displayModeChanged();
}

void PlayerLayerView::updateHostingView()
{
    if (isVisible())
        PlayerSurfaceRegistry::shared().setView(m_hostingView);
    m_hostingView->setPlayer(m_player);
    m_hostingView->setDisplayMode(m_displayMode);
    m_hostingView->setFillScreen(m_fillScreen);
}

void PlayerLayerView::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    m_hostingView->setSize(newGeometry.size());
}

void PlayerLayerView::itemChange(ItemChange change, const ItemChangeData &data)
{
    if (change == ItemVisibleHasChanged)
        updateHostingView();
    QQuickItem::itemChange(change, data);
}

} // namespace zeph
