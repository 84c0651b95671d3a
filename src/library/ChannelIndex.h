// What the filters of a list of channels look at, made once per list.
#pragma once

#include "library/FoldedTexts.h"
#include "sources/PlaylistEntry.h"

#include <QHash>
#include <QList>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

namespace zeph {

/// Names in a form to be searched, and groups and countries as numbers. Never changes: reading is
/// for any thread.
class ChannelIndex {
public:
    /// Rows are in chunks, to be worked on side by side.
    static constexpr qsizetype chunkSize = 1 << 14;
    static qsizetype chunkCount(qsizetype rows) { return (rows + chunkSize - 1) / chunkSize; }

    /// What stands for having no group, or no country. An empty one is none.
    static constexpr std::uint32_t none = 0;

    /// Uses the global thread pool besides the calling thread. Null when `isCanceled` tells so
    /// meanwhile. Any thread.
    static std::shared_ptr<const ChannelIndex> create(const QList<PlaylistEntry> &entries,
        const TextFolding &folding, const std::function<bool()> &isCanceled);

    /// The chunk's names.
    const FoldedTexts &names(qsizetype chunk) const
    {
        return m_names[static_cast<std::size_t>(chunk)];
    }
    /// How often each byte is in the names.
    const TextSearch::ByteCounts &nameBytes() const { return m_nameBytes; }
    /// The numbers of the rows' groups and countries.
    const std::uint32_t *groups() const { return m_groups.data(); }
    const std::uint32_t *countries() const { return m_countries.data(); }

    /// For each group's number, whether its title contains `search`.
    std::vector<char> groupsWith(const TextSearch &search) const;
    /// Nothing when no entry has it.
    std::optional<std::uint32_t> groupNumber(const QString &title) const;
    std::optional<std::uint32_t> countryNumber(const QString &code) const;

    /// All groups, in the order of their characters' numbers.
    const QStringList &groupTitles() const { return m_groupTitles; }
    /// All countries, in the order of their English names.
    const QStringList &countryCodes() const { return m_countryCodes; }

private:
    void takeNames(const QList<PlaylistEntry> &entries, const TextFolding &folding,
        const std::function<bool()> &isCanceled);
    void takeGroups(const QList<PlaylistEntry> &entries, const TextFolding &folding);
    void takeCountries(const QList<PlaylistEntry> &entries);

    std::vector<FoldedTexts> m_names;
    TextSearch::ByteCounts m_nameBytes {};
    std::vector<std::uint32_t> m_groups;
    std::vector<std::uint32_t> m_countries;
    QHash<QString, std::uint32_t> m_groupNumbers;
    QHash<QString, std::uint32_t> m_countryNumbers;
    FoldedTexts m_foldedGroups; ///< Begins with number 1.
    QStringList m_groupTitles;
    QStringList m_countryCodes;
};

} // namespace zeph
