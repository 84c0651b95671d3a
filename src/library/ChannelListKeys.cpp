#include "library/ChannelListKeys.h"

#include "library/TypedText.h"

#include <QQuickWindow>

#include <algorithm>
#include <utility>

namespace zeph {

namespace {

bool isPlain(const QKeyEvent &press)
{
    return (press.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

bool movesRow(int key)
{
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Home || key == Qt::Key_End
        || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

bool movesWithinRow(int key)
{
    return key == Qt::Key_Left || key == Qt::Key_Right;
}

bool isReturn(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

// The space bar is the player's: no name begins with a blank.
bool isText(const QKeyEvent &press)
{
    return isTypedText(press) && !press.text().front().isSpace();
}

} // namespace

void ChannelListKeys::setBrowser(ChannelBrowser *browser)
{
    if (std::exchange(m_browser, QPointer(browser)) != browser)
        Q_EMIT browserChanged();
}

void ChannelListKeys::setChannels(ChannelListModel *channels)
{
    if (m_channels == channels)
        return;
    if (m_channels)
        m_channels->disconnect(this);
    m_channels = channels;
    if (channels) {
        connect(channels, &ChannelListModel::rowsReplaced, this, &ChannelListKeys::startAnew);
        for (const auto signal :
            { &QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved })
            connect(channels, signal, this, &ChannelListKeys::followCurrentRow);
    }
    startAnew();
    Q_EMIT channelsChanged();
}

void ChannelListKeys::setList(QQuickItem *list)
{
    if (m_list == list)
        return;
    watch(m_list, list);
    if (list)
        connect(list, &QQuickItem::activeFocusChanged, this, &ChannelListKeys::startWhereNone);
    Q_EMIT listChanged();
}

void ChannelListKeys::setSearchField(QQuickItem *field)
{
    if (m_searchField == field)
        return;
    watch(m_searchField, field);
    Q_EMIT searchFieldChanged();
}

void ChannelListKeys::watch(QPointer<QQuickItem> &watched, QQuickItem *item)
{
    if (watched) {
        watched->removeEventFilter(this);
        watched->disconnect(this);
    }
    watched = item;
    if (item)
        item->installEventFilter(this);
}

void ChannelListKeys::setRowsPerPage(int rows)
{
    if (std::exchange(m_rowsPerPage, rows) != rows)
        Q_EMIT rowsPerPageChanged();
}

void ChannelListKeys::click(int row)
{
    moveTo(row);
    QQuickItem *focus = m_list->window()->activeFocusItem();
    if (focus && !m_list->hasActiveFocus())
        focus->setFocus(false, Qt::MouseFocusReason);
    m_channels->play(row);
}

bool ChannelListKeys::eventFilter(QObject *watched, QEvent *event)
{
    const bool isQuestion = event->type() == QEvent::ShortcutOverride;
    if (!isQuestion && event->type() != QEvent::KeyPress)
        return false;
    auto &press = static_cast<QKeyEvent &>(*event);
    if (watched == m_searchField)
        return !isQuestion && handleInSearchField(press);
    if (!wants(press))
        return false;
    press.accept();
    if (!isQuestion)
        handleInList(press);
    return true;
}

bool ChannelListKeys::wants(const QKeyEvent &press) const
{
    if (isText(press))
        return true;
    if (!isPlain(press))
        return false;
    const int key = press.key();
    return movesRow(key) || movesWithinRow(key) || isReturn(key)
        || (key == Qt::Key_Escape && !m_browser->channelSearch().isEmpty());
}

void ChannelListKeys::handleInList(QKeyEvent &press)
{
    const int key = press.key();
    if (movesRow(key)) {
        moveTo(rowAfter(key));
        goToList();
    } else if (movesWithinRow(key)) {
        moveWithinRow(key == Qt::Key_Right);
    } else if (isReturn(key)) {
        if (m_currentRow >= 0 && !press.isAutoRepeat())
            m_channels->play(m_currentRow);
    } else if (key == Qt::Key_Escape) {
        m_browser->setChannelSearch({});
        goToList();
    } else {
        m_searchField->forceActiveFocus(Qt::ShortcutFocusReason);
        QCoreApplication::sendEvent(m_searchField, &press);
    }
}

bool ChannelListKeys::handleInSearchField(const QKeyEvent &press)
{
    if (!isPlain(press))
        return false;
    if (press.key() == Qt::Key_Escape)
        m_browser->setChannelSearch({});
    else if (press.key() != Qt::Key_Down && !isReturn(press.key()))
        return false;
    goToList();
    return true;
}

int ChannelListKeys::rowCount() const
{
    return m_channels ? m_channels->count() : 0;
}

int ChannelListKeys::rowAfter(int key) const
{
    switch (key) {
    case Qt::Key_Up:
        return m_currentRow - 1;
    case Qt::Key_Down:
        return m_currentRow + 1;
    case Qt::Key_PageUp:
        return m_currentRow - m_rowsPerPage;
    case Qt::Key_PageDown:
        return m_currentRow + m_rowsPerPage;
    case Qt::Key_Home:
        return 0;
    default:
        return rowCount() - 1;
    }
}

void ChannelListKeys::moveTo(int row)
{
    setCurrentRow(rowCount() == 0 ? -1 : std::clamp(row, 0, rowCount() - 1));
}

void ChannelListKeys::moveWithinRow(bool forward)
{
    const QQuickItem *row = m_list->property("currentItem").value<QQuickItem *>();
    QQuickItem *focus = m_list->window()->activeFocusItem();
    if (!row || !focus)
        return;
    QQuickItem *next = focus->nextItemInFocusChain(forward);
    if (row->isAncestorOf(next))
        next->forceActiveFocus(Qt::TabFocusReason);
    else if (!forward)
        goToList();
}

/// With the current row, even if one of its buttons had the focus.
void ChannelListKeys::goToList()
{
    if (rowCount() == 0)
        return;
    m_list->forceActiveFocus(Qt::TabFocusReason);
    startWhereNone();
    if (auto *row = m_list->property("currentItem").value<QQuickItem *>())
        row->forceActiveFocus(Qt::TabFocusReason);
}

void ChannelListKeys::startWhereNone()
{
    if (m_currentRow < 0 && m_list->hasActiveFocus())
        moveTo(0);
}

void ChannelListKeys::startAnew()
{
    setCurrentRow(-1);
    if (m_list)
        startWhereNone();
    Q_EMIT startedAnew();
}

void ChannelListKeys::followCurrentRow()
{
    if (m_currentRow < 0 || m_current.isValid())
        setCurrentRow(m_current.row());
    else
        moveTo(m_currentRow); // It is gone: the next one has come to its place.
}

void ChannelListKeys::setCurrentRow(int row)
{
    m_current = m_channels ? m_channels->index(row) : QModelIndex();
    if (std::exchange(m_currentRow, row) != row)
        Q_EMIT currentRowChanged();
}

} // namespace zeph
