// The rows of a list of channels that are on screen.
#pragma once

#include <QAbstractItemModel>
#include <QPointer>
#include <QQmlComponent>
#include <QQuickItem>

#include <map>
#include <vector>

namespace zeph {

/// Shows the part of a model at which a Flickable stands, in row items that it makes once and uses
/// again. They lie where the Flickable is and not in what it moves: a list of a million rows is
/// higher than the scene graph, which counts in single precision, can tell places apart. Main
/// thread only.
///
/// A row item has a property for each role that it needs, and besides `int index` and `bool
/// isKeyRow`. The current row's item has the focus within this one.
class ChannelRows : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QAbstractItemModel *model READ model WRITE setModel NOTIFY modelChanged)
    Q_PROPERTY(QQmlComponent *delegate READ delegate WRITE setDelegate NOTIFY delegateChanged)
    /// The Flickable, which is moved to the current row.
    Q_PROPERTY(QQuickItem *scroller READ scroller WRITE setScroller NOTIFY scrollerChanged)
    /// Where it stands, at least 0.
    Q_PROPERTY(double contentY READ contentY WRITE setContentY NOTIFY contentYChanged)
    /// From the top of one row to that of the next.
    Q_PROPERTY(double pitch READ pitch WRITE setPitch NOTIFY pitchChanged)
    /// -1 for none.
    Q_PROPERTY(int currentRow READ currentRow WRITE setCurrentRow NOTIFY currentRowChanged)
    /// Null when the current row is not on screen.
    Q_PROPERTY(QQuickItem *currentItem READ currentItem NOTIFY currentItemChanged)

public:
    explicit ChannelRows(QQuickItem *parent = nullptr);
    ~ChannelRows() override;

    QAbstractItemModel *model() const { return m_model; }
    void setModel(QAbstractItemModel *model);
    QQmlComponent *delegate() const { return m_delegate; }
    /// To be called once.
    void setDelegate(QQmlComponent *delegate);
    QQuickItem *scroller() const { return m_scroller; }
    void setScroller(QQuickItem *scroller);
    double contentY() const { return m_contentY; }
    void setContentY(double y);
    double pitch() const { return m_pitch; }
    void setPitch(double pitch);
    int currentRow() const { return m_currentRow; }
    void setCurrentRow(int row);
    QQuickItem *currentItem() const { return m_currentItem; }

    Q_INVOKABLE void positionAtBeginning();

Q_SIGNALS:
    void modelChanged();
    void delegateChanged();
    void scrollerChanged();
    void contentYChanged();
    void pitchChanged();
    void currentRowChanged();
    void currentItemChanged();

protected:
    void componentComplete() override;
    void geometryChange(const QRectF &geometry, const QRectF &oldGeometry) override;
    void updatePolish() override;

private:
    void renew();
    void updateRows(const QModelIndex &first, const QModelIndex &last);
    void layOut();
    void hide(std::map<int, QQuickItem *>::iterator row);
    QQuickItem *makeItem(int row);
    void takeRoles(const QQuickItem &item);
    QVariantMap properties(int row) const;
    void fill(QQuickItem &item, int row) const;
    void focusCurrentItem();
    void scrollTo(double y);
    void showCurrentRow();

    QPointer<QAbstractItemModel> m_model;
    QPointer<QQmlComponent> m_delegate;
    QPointer<QQuickItem> m_scroller;
    QHash<int, QString> m_roles; ///< Those that the items have a property for.
    double m_contentY = 0;
    double m_pitch = 1;
    int m_currentRow = -1;
    QPointer<QQuickItem> m_currentItem;
    std::map<int, QQuickItem *> m_items; ///< Of the rows on screen.
    std::vector<QQuickItem *> m_spareItems; ///< Hidden.
};

} // namespace zeph
