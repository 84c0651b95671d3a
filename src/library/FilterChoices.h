// What a filter menu offers.
#pragma once

#include <QAbstractListModel>
#include <QQmlEngine>
#include <QStringList>

namespace zeph {

/// The rows of the menu that chooses one value of those that occur in a list, the first of which
/// chooses none. Main thread only.
class FilterChoices : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The channel browser owns its filters' choices.")

    /// The selected value's title, or what the filter is about when none is selected.
    Q_PROPERTY(QString label READ label NOTIFY selectedChanged)
    /// A value is selected.
    Q_PROPERTY(bool isFiltering READ isFiltering NOTIFY selectedChanged)

public:
    enum Role {
        TitleRole = Qt::UserRole, ///< "title"
        ValueRole, ///< "value": empty in the first row.
        IsSelectedRole, ///< "isSelected": never in the first row.
    };

    struct Texts {
        QString unselectedLabel;
        QString clearTitle; ///< Of the first row.
    };
    using Title = QString (*)(const QString &value);

    FilterChoices(Texts texts, Title title, QObject *parent = nullptr);

    const QStringList &values() const { return m_values; }
    void setValues(const QStringList &values);
    /// Empty when none is. Need not be among the values.
    const QString &selected() const { return m_selected; }
    void setSelected(const QString &value);

    QString label() const;
    bool isFiltering() const { return !m_selected.isEmpty(); }
    /// Selects the value of a row.
    Q_INVOKABLE void choose(int row);
    /// The next row from `first` on, or else from the beginning, whose title begins with `text`, be
    /// it in capitals or not; -1 when there is none. `text` is not empty.
    int rowBeginningWith(const QString &text, int first) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void selectedChanged();

private:
    QString valueAt(int row) const;

    const Texts m_texts;
    const Title m_title;
    QStringList m_values;
    QString m_selected;
};

} // namespace zeph
