// Which channels of a list are shown.
#pragma once

#include "library/ChannelIndex.h"

#include <QFuture>

namespace zeph {

/// What a channel has to meet. Anything that is empty is met by all.
struct ChannelCriteria {
    /// In the name or the group's title, but for letter case: see TextSearch.
    QString search;
    /// Exactly the channel's.
    QString countryCode;
    QString category; ///< The group's title.

    bool areEmpty() const
    {
        return search.isEmpty() && countryCode.isEmpty() && category.isEmpty();
    }
    friend bool operator==(const ChannelCriteria &, const ChannelCriteria &) = default;
};

/// A list of channels, and those of them that meet the criteria, in the order of the list. A large
/// list is prepared on other threads first, and what is asked of it that needs this waits for it.
///
/// One thread at a time.
class ChannelFilter {
public:
    explicit ChannelFilter(
        const QList<PlaylistEntry> &entries = {}, const TextFolding &folding = TextFolding());
    /// Preparing ends early. A large list that nobody else holds goes on another thread.
    ~ChannelFilter();
    ChannelFilter(const ChannelFilter &) = delete;
    ChannelFilter &operator=(const ChannelFilter &) = delete;

    const QList<PlaylistEntry> &entries() const { return m_entries; }

    /// How many meet the criteria.
    qsizetype count() const { return m_count; }
    /// Where in `entries` the one at `place` is, 0…count() − 1 among those that meet the criteria.
    qsizetype row(qsizetype place) const;

    const ChannelCriteria &criteria() const { return m_criteria; }
    void setCriteria(const ChannelCriteria &criteria);

    /// Finished when what needs the list prepared takes no longer than a frame.
    QFuture<void> prepared() const { return QFuture<void>(m_preparation); }
    /// All countries of the list, in the order of their English names.
    QStringList countryCodes() const { return index().countryCodes(); }
    /// All groups of the list, in the order of their characters' numbers.
    QStringList categories() const { return index().groupTitles(); }

private:
    using Index = std::shared_ptr<const ChannelIndex>;
    struct Query;

    /// Places within the chunk.
    using ChunkRows = std::vector<std::uint16_t>;

    /// A list of one chunk is prepared in less time than a frame takes, when it is asked about.
    bool isLarge() const { return m_entries.size() > ChannelIndex::chunkSize; }
    const ChannelIndex &index() const;
    Query query(const ChannelCriteria &criteria) const;
    void filter(const Query &query);
    void filterChunk(qsizetype chunk, const Query &query);

    QList<PlaylistEntry> m_entries;
    TextFolding m_folding;
    QFuture<Index> m_preparation; ///< Of a large list.
    mutable Index m_index; ///< Null until it is needed.

    ChannelCriteria m_criteria;
    TextSearch m_search; ///< That of the criteria.
    std::vector<ChunkRows> m_chunks; ///< Meet the criteria. Unused while those are empty.
    std::vector<qsizetype> m_ends; ///< How many rows there are up to each chunk's end.
    qsizetype m_count;
};

} // namespace zeph
