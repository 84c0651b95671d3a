// The picture of a logo.
#pragma once

#include "platform/ImageLoader.h"

#include <QPointer>
#include <QQuickItem>

#include <memory>

namespace zeph {

/// Draws the picture at an address in the middle of the item, whole, in its own proportions and as
/// large as the item has room for. It is fetched only while the item is visible; hiding it cancels
/// that. Main thread only, apart from the scene graph's own calls.
class LogoImage : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(zeph::ImageLoader *loader READ loader WRITE setLoader NOTIFY loaderChanged)
    /// Empty for none.
    Q_PROPERTY(QUrl url READ url WRITE setUrl NOTIFY urlChanged)
    /// Milliseconds for which an address has to stay before it is fetched: not for each row that
    /// flies past, nor for each letter that is typed.
    Q_PROPERTY(int delay READ delay WRITE setDelay NOTIFY delayChanged)
    /// Whether there is a picture; false while it is fetched.
    Q_PROPERTY(bool hasImage READ hasImage NOTIFY hasImageChanged)

public:
    explicit LogoImage(QQuickItem *parent = nullptr);
    ~LogoImage() override;

    ImageLoader *loader() const { return m_loader; }
    /// It outlives the item, or is null.
    void setLoader(ImageLoader *loader);
    const QUrl &url() const { return m_url; }
    void setUrl(const QUrl &url);
    int delay() const { return static_cast<int>(m_delay.count()); }
    void setDelay(int milliseconds);
    bool hasImage() const { return !m_image.isNull(); }

Q_SIGNALS:
    void loaderChanged();
    void urlChanged();
    void delayChanged();
    void hasImageChanged();

protected:
    void componentComplete() override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;
    void geometryChange(const QRectF &geometry, const QRectF &oldGeometry) override;
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *data) override;

private:
    bool isNeeded() const;
    QSize neededPixels() const;
    /// Begins with what is needed by now, or ends what is not needed any more.
    void reload();
    void request();
    void takeImage();
    void setImage(const QImage &image);

    QPointer<ImageLoader> m_loader;
    QUrl m_url;
    std::chrono::milliseconds m_delay { 80 };
    Delay m_start;
    std::unique_ptr<ImageRequest> m_request;
    QImage m_image;
    bool m_isNewImage = false;
};

} // namespace zeph
