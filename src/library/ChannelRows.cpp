#include "library/ChannelRows.h"

#include <QQuickWindow>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zeph {

ChannelRows::ChannelRows(QQuickItem *parent) : QQuickItem(parent)
{
    setFlag(ItemIsFocusScope);
}

ChannelRows::~ChannelRows() = default;

void ChannelRows::setModel(QAbstractItemModel *model)
{
    if (m_model == model)
        return;
    if (m_model)
        m_model->disconnect(this);
    m_model = model;
    if (model) {
        connect(model, &QAbstractItemModel::rowsInserted, this, &ChannelRows::renew);
        connect(model, &QAbstractItemModel::rowsRemoved, this, &ChannelRows::renew);
        connect(model, &QAbstractItemModel::modelReset, this, &ChannelRows::renew);
        connect(model, &QAbstractItemModel::layoutChanged, this, &ChannelRows::renew);
        connect(model, &QAbstractItemModel::dataChanged, this, &ChannelRows::updateRows);
    }
    renew();
    Q_EMIT modelChanged();
}

void ChannelRows::setDelegate(QQmlComponent *delegate)
{
    if (std::exchange(m_delegate, QPointer(delegate)) == delegate)
        return;
    polish();
    Q_EMIT delegateChanged();
}

void ChannelRows::setScroller(QQuickItem *scroller)
{
    if (std::exchange(m_scroller, QPointer(scroller)) != scroller)
        Q_EMIT scrollerChanged();
}

void ChannelRows::setContentY(double y)
{
    if (std::exchange(m_contentY, y) == y)
        return;
    polish();
    Q_EMIT contentYChanged();
}

void ChannelRows::setPitch(double pitch)
{
    if (std::exchange(m_pitch, pitch) == pitch)
        return;
    polish();
    Q_EMIT pitchChanged();
}

void ChannelRows::setCurrentRow(int row)
{
    if (std::exchange(m_currentRow, row) == row)
        return;
    showCurrentRow();
    layOut();
    Q_EMIT currentRowChanged();
}

void ChannelRows::positionAtBeginning()
{
    scrollTo(0);
}

void ChannelRows::componentComplete()
{
    QQuickItem::componentComplete();
    polish();
}

void ChannelRows::geometryChange(const QRectF &geometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(geometry, oldGeometry);
    polish();
}

void ChannelRows::updatePolish()
{
    layOut();
}

/// The rows on screen may be others by now.
void ChannelRows::renew()
{
    const int count = m_model ? m_model->rowCount() : 0;
    while (!m_items.empty() && m_items.rbegin()->first >= count)
        hide(std::prev(m_items.end()));
    for (const auto &[row, item] : m_items)
        fill(*item, row);
    polish();
}

void ChannelRows::updateRows(const QModelIndex &first, const QModelIndex &last)
{
    const auto end = m_items.upper_bound(last.row());
    for (auto row = m_items.lower_bound(first.row()); row != end; ++row)
        fill(*row->second, row->first);
}

void ChannelRows::layOut()
{
    if (!isComponentComplete() || !m_delegate || !window())
        return;
    const int count = m_model ? m_model->rowCount() : 0;
    const int first = static_cast<int>(std::floor(m_contentY / m_pitch));
    const int end = std::min(count, static_cast<int>(std::ceil((m_contentY + height()) / m_pitch)));
    for (auto row = m_items.begin(); row != m_items.end();) {
        const auto next = std::next(row);
        if (row->first < first || row->first >= end)
            hide(row);
        row = next;
    }
    // On whole pixels, so that the texts are sharp.
    const double ratio = window()->effectiveDevicePixelRatio();
    const double top = std::round(m_contentY * ratio) / ratio;
    for (int row = first; row < end; ++row) {
        QQuickItem *&item = m_items[row];
        if (!item)
            item = makeItem(row);
        item->setPosition({ 0, row * m_pitch - top });
        item->setWidth(width());
    }
    focusCurrentItem();
}

void ChannelRows::hide(std::map<int, QQuickItem *>::iterator row)
{
    row->second->setVisible(false);
    m_spareItems.push_back(row->second);
    m_items.erase(row);
}

QQuickItem *ChannelRows::makeItem(int row)
{
    if (!m_spareItems.empty()) {
        QQuickItem *item = m_spareItems.back();
        m_spareItems.pop_back();
        fill(*item, row);
        item->setVisible(true);
        return item;
    }
    auto *item = qobject_cast<QQuickItem *>(m_delegate->beginCreate(m_delegate->creationContext()));
    Q_ASSERT(item);
    takeRoles(*item);
    m_delegate->setInitialProperties(item, properties(row));
    item->setParent(this);
    item->setParentItem(this);
    m_delegate->completeCreate();
    return item;
}

void ChannelRows::takeRoles(const QQuickItem &item)
{
    if (!m_roles.isEmpty())
        return;
    const QHash<int, QByteArray> roles = m_model->roleNames();
    for (auto role = roles.begin(); role != roles.end(); ++role) {
        if (item.metaObject()->indexOfProperty(role.value().constData()) >= 0)
            m_roles.insert(role.key(), QString::fromLatin1(role.value()));
    }
}

QVariantMap ChannelRows::properties(int row) const
{
    QVariantMap properties { { QStringLiteral("index"), row },
        { QStringLiteral("isKeyRow"), row == m_currentRow } };
    const QModelIndex index = m_model->index(row, 0);
    for (auto role = m_roles.begin(); role != m_roles.end(); ++role)
        properties.insert(role.value(), index.data(role.key()));
    return properties;
}

void ChannelRows::fill(QQuickItem &item, int row) const
{
    const QVariantMap values = properties(row);
    for (auto value = values.begin(); value != values.end(); ++value)
        item.setProperty(value.key().toLatin1().constData(), value.value());
}

void ChannelRows::focusCurrentItem()
{
    const auto found = m_items.find(m_currentRow);
    QQuickItem *current = found == m_items.end() ? nullptr : found->second;
    if (m_currentItem == current)
        return;
    if (m_currentItem) {
        m_currentItem->setProperty("isKeyRow", false);
        m_currentItem->setFocus(false);
    }
    m_currentItem = current;
    if (current) {
        current->setProperty("isKeyRow", true);
        current->setFocus(true);
    }
    Q_EMIT currentItemChanged();
}

void ChannelRows::scrollTo(double y)
{
    if (m_scroller)
        m_scroller->setProperty("contentY", y);
}

void ChannelRows::showCurrentRow()
{
    if (m_currentRow < 0)
        return;
    const double top = m_currentRow * m_pitch;
    if (top < m_contentY)
        scrollTo(top);
    else if (top + m_pitch > m_contentY + height())
        scrollTo(top + m_pitch - height());
}

} // namespace zeph
