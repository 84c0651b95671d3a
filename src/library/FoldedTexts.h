// A part of the texts that are searched.
#pragma once

#include "platform/TextSearch.h"

#include <cstdint>
#include <vector>

namespace zeph {

/// Folded texts, one after another in one block of memory, which a search runs through at once.
/// Reading is for any thread.
class FoldedTexts {
public:
    /// Makes room. `bytes` is an estimate of what all texts take.
    void reserve(std::size_t texts, std::size_t bytes);
    /// `text` is valid UTF-8. All of them together stay below 4 GiB.
    void append(QByteArrayView text, const TextFolding &folding);

    std::size_t count() const { return m_ends.size(); }
    bool contains(std::size_t text, const TextSearch &search) const;
    /// Calls `found` with the number of each text that contains `search`, in their order.
    template <typename Found> void findAll(const TextSearch &search, const Found &found) const;
    void addByteCounts(TextSearch::ByteCounts &counts) const;

private:
    std::size_t startOf(std::size_t text) const { return text == 0 ? 0 : m_ends[text - 1] + 1; }

    std::string m_bytes; ///< Each text followed by a separator.
    std::vector<std::uint32_t> m_ends; ///< Where each text's separator is.
};

template <typename Found>
void FoldedTexts::findAll(const TextSearch &search, const Found &found) const
{
    if (m_ends.empty())
        return;
    const char *const begin = m_bytes.data();
    const char *const end = begin + m_ends.back();
    std::size_t text = 0;
    const char *from = begin;
    while (const char *const match = search.find(from, end)) {
        const auto place = static_cast<std::size_t>(match - begin);
        while (m_ends[text] < place)
            ++text;
        found(text);
        if (++text == m_ends.size())
            return;
        from = begin + startOf(text);
    }
}

} // namespace zeph
