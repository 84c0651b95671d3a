#include "library/ChannelListModel.h"

#include "library/LocalM3UStore.h"
#include "player/PlayerModel.h"

#include <algorithm>
#include <utility>

namespace zeph {

namespace {

struct Difference {
    int first; ///< Of the rows that are not the same.
    int oldCount;
    int newCount;
};

Difference difference(const ChannelFilter &before, const ChannelFilter &after)
{
    const auto entry = [](const ChannelFilter &filter, qsizetype place) -> const PlaylistEntry & {
        return filter.entries().at(filter.row(place));
    };
    const qsizetype common = std::min(before.count(), after.count());
    qsizetype first = 0;
    while (first < common && entry(before, first) == entry(after, first))
        ++first;
    qsizetype last = 0;
    while (last < common - first
        && entry(before, before.count() - 1 - last) == entry(after, after.count() - 1 - last))
        ++last;
    return { static_cast<int>(first), static_cast<int>(before.count() - first - last),
        static_cast<int>(after.count() - first - last) };
}

} // namespace

ChannelListModel::ChannelListModel(
    PlayerModel &model, LocalM3UStore &store, Metadata metadata, QObject *parent)
    : QAbstractListModel(parent), m_model(model), m_store(store), m_metadata(metadata)
{
    connect(&m_nextPreparation, &QFutureWatcherBase::finished, this,
        &ChannelListModel::showNewestEntries);
    for (const auto sourceChanged : { &PlayerModel::currentURLChanged,
             &PlayerModel::youtubeContentChanged, &PlayerModel::okVideoContentChanged })
        connect(&model, sourceChanged, this, [this] { updateRoles({ IsCurrentRole }); });
    connect(&store, &LocalM3UStore::entriesChanged, this, [this] {
        updateRoles({ IsSavedRole, SaveHelpRole, SaveSymbolRole });
    });
}

ChannelListModel::~ChannelListModel() = default;

std::optional<PlaylistEntry> ChannelListModel::entry(int row) const
{
    if (row < 0 || row >= m_filter->count())
        return std::nullopt;
    return m_filter->entries().at(m_filter->row(row));
}

void ChannelListModel::setEntries(
    const QList<PlaylistEntry> &entries, const ChannelCriteria &criteria)
{
    m_next = std::make_unique<ChannelFilter>(entries);
    m_nextCriteria = criteria;
    const QFuture<void> preparation = m_next->prepared();
    if (criteria.areEmpty() || preparation.isFinished())
        showNewestEntries();
    else
        m_nextPreparation.setFuture(preparation);
}

void ChannelListModel::showNewestEntries()
{
    if (!m_next)
        return;
    m_next->setCriteria(m_nextCriteria);
    const auto before = std::exchange(m_filter, std::move(m_next));
    const Difference change = difference(*before, *m_filter);
    replaceRows(change.first, change.oldCount, change.newCount);
}

void ChannelListModel::setCriteria(const ChannelCriteria &criteria)
{
    if (criteria == (m_next ? m_nextCriteria : m_filter->criteria()))
        return;
    if (m_next) {
        m_nextCriteria = criteria;
        showNewestEntries();
    } else {
        m_filter->setCriteria(criteria);
        replaceRows(0, m_count, static_cast<int>(m_filter->count()));
    }
    Q_EMIT rowsReplaced();
}

// Rows that are only changed keep what draws them.
void ChannelListModel::replaceRows(int first, int oldCount, int newCount)
{
    const int common = std::min(oldCount, newCount);
    if (newCount < oldCount) {
        beginRemoveRows({}, first + newCount, first + oldCount - 1);
        m_count -= oldCount - newCount;
        endRemoveRows();
    } else if (newCount > oldCount) {
        beginInsertRows({}, first + oldCount, first + newCount - 1);
        m_count += newCount - oldCount;
        endInsertRows();
    }
    if (common > 0)
        Q_EMIT dataChanged(index(first), index(first + common - 1));
    Q_EMIT countChanged();
}

// The views ask only about the rows that they show, which takes less than to find those concerned.
void ChannelListModel::updateRoles(const QList<int> &roles)
{
    if (m_count > 0)
        Q_EMIT dataChanged(index(0), index(m_count - 1), roles);
}

void ChannelListModel::play(int row)
{
    if (const auto channel = entry(row))
        m_model.play(channel->url(), channel->name(), true);
}

void ChannelListModel::saveToLocalM3U(int row)
{
    if (const auto channel = entry(row))
        m_store.saveToLocalM3U(*channel);
}

bool ChannelListModel::isCurrent(const PlaylistEntry &entry) const
{
    // The model keeps the address while a web page is shown in place of what was played.
    const bool playsAddress = !m_model.youtubeContent() && !m_model.okVideoContent();
    return playsAddress && !m_model.currentURL().isEmpty() && entry.url() == m_model.currentURL();
}

int ChannelListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_count;
}

QVariant ChannelListModel::data(const QModelIndex &index, int role) const
{
    // Rows that are about to go have no channel any more.
    const auto found = entry(index.row());
    if (!found)
        return {};
    const PlaylistEntry &channel = *found;
    switch (role) {
    case NameRole:
        return channel.name();
    case MetadataRole:
        return m_metadata(channel);
    case LogoUrlRole:
        return channel.logoURL().value_or(QUrl());
    case IsCurrentRole:
        return isCurrent(channel);
    case IsSavedRole:
        return m_store.contains(channel);
    case HelpRole:
        return tr("Play ") + channel.name();
    case SaveHelpRole:
        return m_store.contains(channel) ? tr("Saved to Local M3U (Click to re-save)")
                                         : tr("Save to Local M3U");
    case SaveSymbolRole:
        return m_store.contains(channel) ? QStringLiteral("checkmark.circle.fill")
                                         : QStringLiteral("square.and.arrow.down");
    default:
        return {};
    }
}

QHash<int, QByteArray> ChannelListModel::roleNames() const
{
    return {
        { NameRole, "name" },
        { MetadataRole, "metadata" },
        { LogoUrlRole, "logoUrl" },
        { IsCurrentRole, "isCurrent" },
        { IsSavedRole, "isSaved" },
        { HelpRole, "help" },
        { SaveHelpRole, "saveHelp" },
        { SaveSymbolRole, "saveSymbol" },
    };
}

} // namespace zeph
