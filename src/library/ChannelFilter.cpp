#include "library/ChannelFilter.h"

#include "platform/Parallel.h"

#include <QtConcurrent>
#include <QThreadPool>

#include <algorithm>
#include <array>
#include <limits>
#include <numeric>
#include <utility>

namespace zeph {

namespace {

using Index = std::shared_ptr<const ChannelIndex>;

QFuture<Index> prepare(const QList<PlaylistEntry> &entries, const TextFolding &folding)
{
    return QtConcurrent::run([entries, folding](QPromise<Index> &promise) {
        promise.addResult(
            ChannelIndex::create(entries, folding, [&] { return promise.isCanceled(); }));
    });
}

} // namespace

struct ChannelFilter::Query {
    const ChannelIndex &index;
    TextSearch search;
    /// All rows that meet it are among those that are left, and if it does not look for text, they
    /// contain the text.
    bool isNarrower;
    bool looksForText;
    std::vector<char> groupsWithText; ///< By number.
    std::optional<std::uint32_t> country;
    std::optional<std::uint32_t> group;

    template <typename NameHasText>
    bool isMetBy(std::size_t row, const NameHasText &nameHasText) const
    {
        const std::uint32_t rowGroup = index.groups()[row];
        return (!country || index.countries()[row] == *country) && (!group || rowGroup == *group)
            && (!looksForText || groupsWithText[rowGroup] || nameHasText());
    }
};

ChannelFilter::ChannelFilter(const QList<PlaylistEntry> &entries, const TextFolding &folding)
    : m_entries(entries)
    , m_folding(folding)
    , m_preparation(isLarge() ? prepare(entries, folding) : QFuture<Index>())
    , m_count(entries.size())
{
}

ChannelFilter::~ChannelFilter()
{
    m_preparation.cancel();
    // Giving back the memory of a million entries takes longer than a frame does.
    if (isLarge())
        QThreadPool::globalInstance()->start(
            [entries = std::move(m_entries), preparation = std::move(m_preparation),
                index = std::move(m_index)] {});
}

const ChannelIndex &ChannelFilter::index() const
{
    if (!m_index)
        m_index = isLarge() ? m_preparation.result()
                            : ChannelIndex::create(m_entries, m_folding, [] { return false; });
    return *m_index;
}

qsizetype ChannelFilter::row(qsizetype place) const
{
    if (m_criteria.areEmpty())
        return place;
    const auto end = std::upper_bound(m_ends.cbegin(), m_ends.cend(), place);
    const auto chunk = end - m_ends.cbegin();
    const qsizetype before = chunk == 0 ? 0 : *(end - 1);
    return chunk * ChannelIndex::chunkSize
        + m_chunks[static_cast<std::size_t>(chunk)][static_cast<std::size_t>(place - before)];
}

void ChannelFilter::setCriteria(const ChannelCriteria &criteria)
{
    if (criteria == m_criteria)
        return;
    if (criteria.areEmpty()) {
        m_search = {};
        m_count = m_entries.size();
    } else {
        const Query query = this->query(criteria);
        filter(query);
        m_search = query.search;
    }
    m_criteria = criteria;
}

ChannelFilter::Query ChannelFilter::query(const ChannelCriteria &criteria) const
{
    constexpr std::uint32_t unknown = std::numeric_limits<std::uint32_t>::max();
    const auto isUnsetOr = [](const QString &old, const QString &now) {
        return old.isEmpty() || old == now;
    };

    Query query { index(), TextSearch(criteria.search, m_folding), false, false, {}, {}, {} };
    query.search.expect(query.index.nameBytes());
    const bool isSameSearch = query.search == m_search;
    query.isNarrower = !m_criteria.areEmpty()
        && isUnsetOr(m_criteria.countryCode, criteria.countryCode)
        && isUnsetOr(m_criteria.category, criteria.category)
        && (m_search.isEmpty() || isSameSearch || query.search.isNarrowerThan(m_search));
    query.looksForText = !query.search.isEmpty() && !(query.isNarrower && isSameSearch);
    if (query.looksForText)
        query.groupsWithText = query.index.groupsWith(query.search);
    if (!criteria.countryCode.isEmpty())
        query.country = query.index.countryNumber(criteria.countryCode).value_or(unknown);
    if (!criteria.category.isEmpty())
        query.group = query.index.groupNumber(criteria.category).value_or(unknown);
    return query;
}

void ChannelFilter::filter(const Query &query)
{
    const auto chunks = static_cast<std::size_t>(ChannelIndex::chunkCount(m_entries.size()));
    m_chunks.resize(chunks);
    m_ends.resize(chunks);
    forEachInParallel(
        static_cast<qsizetype>(chunks), [&](qsizetype chunk) { filterChunk(chunk, query); });
    m_count = 0;
    for (std::size_t chunk = 0; chunk < chunks; ++chunk) {
        m_count += static_cast<qsizetype>(m_chunks[chunk].size());
        m_ends[chunk] = m_count;
    }
}

void ChannelFilter::filterChunk(qsizetype chunk, const Query &query)
{
    const FoldedTexts &names = query.index.names(chunk);
    ChunkRows &rows = m_chunks[static_cast<std::size_t>(chunk)];
    if (!query.isNarrower) {
        rows.resize(names.count());
        std::iota(rows.begin(), rows.end(), std::uint16_t { 0 });
    }
    const auto firstRow = static_cast<std::size_t>(chunk * ChannelIndex::chunkSize);
    const auto keep = [&](const auto &nameHasText) {
        std::erase_if(rows, [&](std::uint16_t row) {
            return !query.isMetBy(firstRow + row, [&] { return nameHasText(row); });
        });
    };
    // Running through many names at once takes less time than as many single searches.
    constexpr std::size_t many = ChannelIndex::chunkSize / 8;
    if (query.looksForText && rows.size() > many) {
        std::array<bool, ChannelIndex::chunkSize> found {};
        names.findAll(query.search, [&](std::size_t name) { found[name] = true; });
        keep([&](std::uint16_t row) { return found[row]; });
    } else {
        keep([&](std::uint16_t row) { return names.contains(row, query.search); });
    }
}

} // namespace zeph
