// The rows of a list of channels.
#pragma once

#include "library/ChannelFilter.h"

#include <QAbstractListModel>
#include <QFutureWatcher>
#include <QQmlEngine>

namespace zeph {

class LocalM3UStore;
class PlayerModel;

/// Those channels of a list that meet the criteria, in the list's order. A row stands for a
/// `PlaylistEntry`; nothing is copied per row, so a million take no longer than a hundred. Main
/// thread only.
class ChannelListModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The channel browser owns its lists.")

    /// How many rows there are.
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    /// How many channels the list has, whatever the criteria are.
    Q_PROPERTY(int totalCount READ totalCount NOTIFY countChanged)

public:
    enum Role {
        NameRole = Qt::UserRole, ///< "name"
        MetadataRole, ///< "metadata": the line below the name; may be empty.
        LogoUrlRole, ///< "logoUrl": empty when there is none.
        IsCurrentRole, ///< "isCurrent": it plays.
        IsSavedRole, ///< "isSaved": its address is in the store.
        HelpRole, ///< "help": of the row, which plays it.
        SaveHelpRole, ///< "saveHelp": of the button that saves it.
        SaveSymbolRole, ///< "saveSymbol": the button's.
    };

    using Metadata = QString (*)(const PlaylistEntry &entry);

    /// `model` and `store` outlive the list.
    ChannelListModel(
        PlayerModel &model, LocalM3UStore &store, Metadata metadata, QObject *parent = nullptr);
    ~ChannelListModel() override;

    /// The newest list, and what is asked about it.
    const ChannelFilter &filter() const { return m_next ? *m_next : *m_filter; }
    int count() const { return m_count; }
    int totalCount() const { return static_cast<int>(m_filter->entries().size()); }
    /// What a row stands for. Nothing when it does not exist.
    std::optional<PlaylistEntry> entry(int row) const;

    /// Shows another list, or what became of the list: rows that stay are told from those that come
    /// and go. If a large list has to be prepared for the criteria, the rows of the one before stay
    /// until that is done.
    void setEntries(const QList<PlaylistEntry> &entries, const ChannelCriteria &criteria);
    /// The rows are those that meet the criteria from now on.
    void setCriteria(const ChannelCriteria &criteria);
    /// Waits until the newest list is prepared, and shows it.
    void showNewestEntries();

    /// Plays a row, as a live stream. A row that does not exist is ignored, here and below.
    Q_INVOKABLE void play(int row);
    /// Puts a row at the front of the saved links.
    Q_INVOKABLE void saveToLocalM3U(int row);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void countChanged();
    /// Other criteria chose the rows: what was looked at is no longer where it was.
    void rowsReplaced();

private:
    bool isCurrent(const PlaylistEntry &entry) const;
    /// From `first` on, `newCount` rows came in place of `oldCount`.
    void replaceRows(int first, int oldCount, int newCount);
    void updateRoles(const QList<int> &roles);

    PlayerModel &m_model;
    LocalM3UStore &m_store;
    const Metadata m_metadata;
    std::unique_ptr<ChannelFilter> m_filter = std::make_unique<ChannelFilter>(); ///< Of the rows.
    std::unique_ptr<ChannelFilter> m_next; ///< Of a list that is being prepared; mostly null.
    ChannelCriteria m_nextCriteria;
    QFutureWatcher<void> m_nextPreparation;
    int m_count = 0; ///< As the observers know it by now.
};

} // namespace zeph
