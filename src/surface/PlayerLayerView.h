// The way by which QML places the native video surface.
#pragma once

#include "surface/PlayerHostingView.h"

#include <QQmlEngine>

namespace zeph {

/// Fills itself with a `PlayerHostingView`, hands it the properties and all news of what plays, and
/// keeps it registered as the view that presents video while it is visible. Main thread only.
class PlayerLayerView : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(zeph::MediaPlayer *player READ player WRITE setPlayer NOTIFY playerChanged)
    /// The window fills the screen.
    Q_PROPERTY(bool fillScreen READ fillScreen WRITE setFillScreen NOTIFY fillScreenChanged)
    Q_PROPERTY(zeph::portraitDisplay::Mode displayMode READ displayMode WRITE setDisplayMode NOTIFY
            displayModeChanged)

public:
    explicit PlayerLayerView(QQuickItem *parent = nullptr);
    ~PlayerLayerView() override;

    MediaPlayer *player() const { return m_player; }
    void setPlayer(MediaPlayer *player);
    bool fillScreen() const { return m_fillScreen; }
    void setFillScreen(bool fillScreen);
    PortraitDisplayMode displayMode() const { return m_displayMode; }
    void setDisplayMode(PortraitDisplayMode mode);

    PlayerHostingView &hostingView() const { return *m_hostingView; }

Q_SIGNALS:
    void playerChanged();
    void fillScreenChanged();
    void displayModeChanged();

protected:
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;

private:
    void followCurrentItem();
    void updateHostingView();

    QPointer<MediaPlayer> m_player;
    bool m_fillScreen = false;
    PortraitDisplayMode m_displayMode = PortraitDisplayMode::Normal;
    PlayerHostingView *const m_hostingView; ///< A child item, destroyed with this one.
};

} // namespace zeph
