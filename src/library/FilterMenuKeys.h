// The keys in a filter menu.
#pragma once

#include "library/FilterChoices.h"
#include "platform/Delay.h"

#include <QKeyEvent>
#include <QPointer>
#include <QQuickItem>

namespace zeph {

/// What the keys do in an open filter menu besides the arrows, which are the ListView's own: Home,
/// End and the page keys move the current row, and letters typed one after the other lead to the
/// next choice that begins with them. The same letter again and again goes from one choice to the
/// next. Main thread only.
class FilterMenuKeys : public QObject {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(
        zeph::FilterChoices *choices READ choices WRITE setChoices NOTIFY choicesChanged REQUIRED)
    /// The ListView.
    Q_PROPERTY(QQuickItem *list READ list WRITE setList NOTIFY listChanged REQUIRED)
    /// Rows that are shown at once.
    Q_PROPERTY(int rowsPerPage READ rowsPerPage WRITE setRowsPerPage NOTIFY rowsPerPageChanged)

public:
    FilterChoices *choices() const { return m_choices; }
    void setChoices(FilterChoices *choices);
    QQuickItem *list() const { return m_list; }
    void setList(QQuickItem *list);
    int rowsPerPage() const { return m_rowsPerPage; }
    void setRowsPerPage(int rows);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void choicesChanged();
    void listChanged();
    void rowsPerPageChanged();

private:
    bool handle(const QKeyEvent &press);
    void lookFor(const QString &text);

    QPointer<FilterChoices> m_choices;
    QPointer<QQuickItem> m_list;
    int m_rowsPerPage = 1;
    QString m_typed;
    Delay m_forgetting; ///< Of what was typed.
};

} // namespace zeph
