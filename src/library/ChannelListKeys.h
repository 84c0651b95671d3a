// The keys in a list of channels.
#pragma once

#include "library/ChannelBrowser.h"

#include <QKeyEvent>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QQuickItem>

namespace zeph {

/// What the keys do while they go to a list of channels: the arrows, Home, End and the page keys
/// move the current row, Return plays it, left and right lead to its buttons and back, and letters
/// go on in the search field. There, Down and Return lead to the list. Escape empties the search,
/// and gives the keys to the list. All other keys are left to the player. Main thread only.
class ChannelListKeys : public QObject {
    Q_OBJECT
    QML_ELEMENT

    /// Has the search.
    Q_PROPERTY(zeph::ChannelBrowser *browser READ browser WRITE setBrowser NOTIFY browserChanged)
    Q_PROPERTY(
        zeph::ChannelListModel *channels READ channels WRITE setChannels NOTIFY channelsChanged)
    /// The list's item, in which the current row has the focus.
    Q_PROPERTY(QQuickItem *list READ list WRITE setList NOTIFY listChanged)
    Q_PROPERTY(
        QQuickItem *searchField READ searchField WRITE setSearchField NOTIFY searchFieldChanged)
    /// Rows that are shown at once.
    Q_PROPERTY(int rowsPerPage READ rowsPerPage WRITE setRowsPerPage NOTIFY rowsPerPageChanged)
    /// -1 for none, as long as no key has gone to the list.
    Q_PROPERTY(int currentRow READ currentRow NOTIFY currentRowChanged)

public:
    ChannelBrowser *browser() const { return m_browser; }
    void setBrowser(ChannelBrowser *browser);
    ChannelListModel *channels() const { return m_channels; }
    void setChannels(ChannelListModel *channels);
    QQuickItem *list() const { return m_list; }
    void setList(QQuickItem *list);
    QQuickItem *searchField() const { return m_searchField; }
    void setSearchField(QQuickItem *field);
    int rowsPerPage() const { return m_rowsPerPage; }
    void setRowsPerPage(int rows);
    int currentRow() const { return m_currentRow; }

    /// Plays a row. The keys go on from there, and no longer to a text.
    Q_INVOKABLE void click(int row);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void browserChanged();
    void channelsChanged();
    void listChanged();
    void searchFieldChanged();
    void rowsPerPageChanged();
    void currentRowChanged();
    /// Other channels are shown: the list is to show its beginning.
    void startedAnew();

private:
    void watch(QPointer<QQuickItem> &watched, QQuickItem *item);
    bool wants(const QKeyEvent &press) const;
    void handleInList(QKeyEvent &press);
    bool handleInSearchField(const QKeyEvent &press);
    int rowCount() const;
    int rowAfter(int key) const;
    void moveTo(int row);
    void setCurrentRow(int row);
    void moveWithinRow(bool forward);
    void goToList();
    void startWhereNone();
    void startAnew();
    /// Rows came or went.
    void followCurrentRow();

    QPointer<ChannelBrowser> m_browser;
    QPointer<ChannelListModel> m_channels;
    QPointer<QQuickItem> m_list;
    QPointer<QQuickItem> m_searchField;
    int m_rowsPerPage = 1;
    int m_currentRow = -1;
    QPersistentModelIndex m_current;
};

} // namespace zeph
