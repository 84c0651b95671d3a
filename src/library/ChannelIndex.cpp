#include "library/ChannelIndex.h"

#include "platform/Parallel.h"
#include "platform/RegionNames.h"
#include "sources/Utf8Space.h"

#include <algorithm>
#include <utility>

namespace zeph {

namespace {

FoldedTexts foldedNames(
    const QList<PlaylistEntry> &entries, qsizetype chunk, const TextFolding &folding)
{
    const qsizetype first = chunk * ChannelIndex::chunkSize;
    const qsizetype last = std::min(first + ChannelIndex::chunkSize, entries.size());
    std::size_t bytes = 0;
    for (qsizetype row = first; row < last; ++row)
        bytes += static_cast<std::size_t>(entries.at(row).nameUtf8().size());
    FoldedTexts names;
    names.reserve(static_cast<std::size_t>(last - first), bytes);
    for (qsizetype row = first; row < last; ++row)
        names.append(entries.at(row).nameUtf8(), folding);
    return names;
}

// The text's number; the next one if it has none yet.
std::uint32_t numberOf(QHash<QString, std::uint32_t> &numbers, const QString &text)
{
    const auto next = static_cast<std::uint32_t>(numbers.size()) + 1;
    const auto found = numbers.constFind(text);
    return found == numbers.cend() ? *numbers.insert(text, next) : *found;
}

std::optional<std::uint32_t> numberIn(
    const QHash<QString, std::uint32_t> &numbers, const QString &text)
{
    const auto found = numbers.constFind(text);
    return found == numbers.cend() ? std::nullopt : std::optional(*found);
}

// QString orders by its 16-bit units, which puts some characters behind later ones.
QStringList sortedByCharacters(QStringList texts)
{
    std::vector<std::pair<QByteArray, QString>> keyed;
    keyed.reserve(static_cast<std::size_t>(texts.size()));
    for (const QString &text : std::as_const(texts))
        keyed.emplace_back(text.toUtf8(), text);
    std::sort(keyed.begin(), keyed.end());
    std::transform(
        keyed.cbegin(), keyed.cend(), texts.begin(), [](const auto &pair) { return pair.second; });
    return texts;
}

} // namespace

std::shared_ptr<const ChannelIndex> ChannelIndex::create(const QList<PlaylistEntry> &entries,
    const TextFolding &folding, const std::function<bool()> &isCanceled)
{
    auto index = std::make_shared<ChannelIndex>();
    index->takeNames(entries, folding, isCanceled);
    if (isCanceled())
        return nullptr;
    index->takeGroups(entries, folding);
    if (isCanceled())
        return nullptr;
    index->takeCountries(entries);
    return index;
}

void ChannelIndex::takeNames(const QList<PlaylistEntry> &entries, const TextFolding &folding,
    const std::function<bool()> &isCanceled)
{
    m_names.resize(static_cast<std::size_t>(chunkCount(entries.size())));
    forEachInParallel(chunkCount(entries.size()), [&](qsizetype chunk) {
        if (!isCanceled())
            m_names[static_cast<std::size_t>(chunk)] = foldedNames(entries, chunk, folding);
    });
    for (const FoldedTexts &names : m_names)
        names.addByteCounts(m_nameBytes);
}

// In both, rows that follow one another mostly have the same.

void ChannelIndex::takeGroups(const QList<PlaylistEntry> &entries, const TextFolding &folding)
{
    m_groups.reserve(static_cast<std::size_t>(entries.size()));
    QStringView last;
    std::uint32_t number = none;
    for (const PlaylistEntry &entry : entries) {
        const QString *const title = entry.sharedGroupTitle();
        if (!title || title->isEmpty()) {
            last = {};
            number = none;
        } else if (last != *title) {
            last = *title;
            number = numberOf(m_groupNumbers, *title);
            if (number > m_foldedGroups.count())
                m_foldedGroups.append(title->toUtf8(), folding);
        }
        m_groups.push_back(number);
    }
    m_groupTitles = sortedByCharacters(m_groupNumbers.keys());
}

void ChannelIndex::takeCountries(const QList<PlaylistEntry> &entries)
{
    m_countries.reserve(static_cast<std::size_t>(entries.size()));
    QByteArrayView last;
    std::uint32_t number = none;
    for (const PlaylistEntry &entry : entries) {
        const QByteArrayView code = entry.countryCodeUtf8().value_or(QByteArrayView());
        if (last != code) {
            last = code;
            number = code.isEmpty() ? none : numberOf(m_countryNumbers, textFromUtf8(code));
        }
        m_countries.push_back(number);
    }
    m_countryCodes = sortedByRegionName(m_countryNumbers.keys());
}

std::vector<char> ChannelIndex::groupsWith(const TextSearch &search) const
{
    std::vector<char> found(m_foldedGroups.count() + 1, 0);
    m_foldedGroups.findAll(search, [&](std::size_t group) { found[group + 1] = 1; });
    return found;
}

std::optional<std::uint32_t> ChannelIndex::groupNumber(const QString &title) const
{
    return numberIn(m_groupNumbers, title);
}

std::optional<std::uint32_t> ChannelIndex::countryNumber(const QString &code) const
{
    return numberIn(m_countryNumbers, code);
}

} // namespace zeph
