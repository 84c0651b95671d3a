#include "library/FilterChoices.h"

#include <utility>

namespace zeph {

FilterChoices::FilterChoices(Texts texts, Title title, QObject *parent)
    : QAbstractListModel(parent), m_texts(std::move(texts)), m_title(title)
{
}

void FilterChoices::setValues(const QStringList &values)
{
    if (values == m_values)
        return;
    beginResetModel();
    m_values = values;
    endResetModel();
}

void FilterChoices::setSelected(const QString &value)
{
    if (std::exchange(m_selected, value) == value)
        return;
    Q_EMIT dataChanged(index(0), index(rowCount() - 1), { IsSelectedRole });
    Q_EMIT selectedChanged();
}

QString FilterChoices::label() const
{
    return isFiltering() ? m_title(m_selected) : m_texts.unselectedLabel;
}

void FilterChoices::choose(int row)
{
    if (row >= 0 && row < rowCount())
        setSelected(valueAt(row));
}

int FilterChoices::rowBeginningWith(const QString &text, int first) const
{
    const QModelIndexList rows = match(index(first < rowCount() ? first : 0), TitleRole, text, 1,
        Qt::MatchStartsWith | Qt::MatchWrap);
    return rows.isEmpty() ? -1 : rows.constFirst().row();
}

QString FilterChoices::valueAt(int row) const
{
    return row == 0 ? QString() : m_values.at(row - 1);
}

int FilterChoices::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_values.size()) + 1;
}

QVariant FilterChoices::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const QString value = valueAt(index.row());
    switch (role) {
    case TitleRole:
        return index.row() == 0 ? m_texts.clearTitle : m_title(value);
    case ValueRole:
        return value;
    case IsSelectedRole:
        return isFiltering() && value == m_selected;
    default:
        return {};
    }
}

QHash<int, QByteArray> FilterChoices::roleNames() const
{
    return { { TitleRole, "title" }, { ValueRole, "value" }, { IsSelectedRole, "isSelected" } };
}

} // namespace zeph
