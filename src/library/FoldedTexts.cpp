#include "library/FoldedTexts.h"

namespace zeph {

void FoldedTexts::reserve(std::size_t texts, std::size_t bytes)
{
    m_ends.reserve(texts);
    m_bytes.reserve(bytes + texts);
}

void FoldedTexts::append(QByteArrayView text, const TextFolding &folding)
{
    folding.appendFolded(text, m_bytes);
    m_ends.push_back(static_cast<std::uint32_t>(m_bytes.size()));
    m_bytes += TextSearch::separator;
}

bool FoldedTexts::contains(std::size_t text, const TextSearch &search) const
{
    const std::size_t start = startOf(text);
    return search.isIn({ m_bytes.data() + start, static_cast<qsizetype>(m_ends[text] - start) });
}

void FoldedTexts::addByteCounts(TextSearch::ByteCounts &counts) const
{
    for (const char byte : m_bytes)
        ++counts[static_cast<unsigned char>(byte)];
}

} // namespace zeph
