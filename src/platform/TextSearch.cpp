#include "platform/TextSearch.h"

#include "platform/Ascii.h"

#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/normalizer2.h>
#include <unicode/stringoptions.h>
#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstring>

namespace zeph {

namespace {

constexpr char smallDotlessI[] = "\u0131";

const icu::Normalizer2 *composer()
{
    UErrorCode status = U_ZERO_ERROR;
    return icu::Normalizer2::getNFCInstance(status);
}

void appendComposed(icu::StringPiece text, std::string &composed)
{
    UErrorCode status = U_ZERO_ERROR;
    icu::StringByteSink<std::string> sink(&composed);
    if (const icu::Normalizer2 *const normalizer = composer())
        normalizer->normalizeUTF8(0, text, sink, nullptr, status);
    else
        composed.append(text.data(), static_cast<std::size_t>(text.size()));
}

void appendFoldedAscii(QByteArrayView text, bool isTurkic, std::string &folded)
{
    if (isTurkic && text.contains('I')) {
        for (const char byte : text) {
            if (byte == 'I')
                folded += smallDotlessI;
            else
                folded += lowerAscii(byte);
        }
        return;
    }
    const auto size = static_cast<std::size_t>(text.size());
    const std::size_t start = folded.size();
    folded.append(text.data(), size);
    std::transform(folded.begin() + static_cast<std::ptrdiff_t>(start), folded.end(),
        folded.begin() + static_cast<std::ptrdiff_t>(start), lowerAscii);
}

// Whether a letter's accent, or another mark that is not to be told from it, begins at `text`.
bool isAccent(const char *text, const char *end)
{
    // None is below U+0300, where most texts are.
    constexpr auto firstByte = static_cast<unsigned char>('\xcc');
    if (text == end || static_cast<unsigned char>(*text) < firstByte
        || *text == TextSearch::separator)
        return false;
    const auto *bytes = reinterpret_cast<const std::uint8_t *>(text);
    int position = 0;
    UChar32 character = 0;
    U8_NEXT(bytes, position, static_cast<int>(std::min<std::ptrdiff_t>(end - text, 4)), character);
    return character >= 0 && u_getCombiningClass(character) != 0;
}

} // namespace

TextFolding::TextFolding(const QLocale &locale)
    : m_isTurkic(locale.language() == QLocale::Turkish || locale.language() == QLocale::Azerbaijani)
{
}

void TextFolding::appendFolded(QByteArrayView text, std::string &folded) const
{
    if (std::all_of(text.begin(), text.end(), isAscii)) {
        appendFoldedAscii(text, m_isTurkic, folded);
        return;
    }
    std::string composed;
    appendComposed({ text.data(), static_cast<int>(text.size()) }, composed);
    std::string caseless;
    UErrorCode status = U_ZERO_ERROR;
    icu::StringByteSink<std::string> sink(&caseless);
    icu::CaseMap::utf8Fold(m_isTurkic ? U_FOLD_CASE_EXCLUDE_SPECIAL_I : U_FOLD_CASE_DEFAULT,
        composed, sink, nullptr, status);
    appendComposed(caseless, folded);
}

TextSearch::TextSearch(QStringView text, const TextFolding &folding)
{
    folding.appendFolded(text.toUtf8(), m_text);
    if (m_text.empty())
        return;
    // In many scripts the first byte of all letters is the same.
    m_rarest = m_text.size() - 1;
    m_beginsWithAccent = isAccent(m_text.data(), m_text.data() + m_text.size());
}

void TextSearch::expect(const ByteCounts &counts)
{
    const auto rarest = std::min_element(m_text.begin(), m_text.end(), [&](char left, char right) {
        return counts[static_cast<unsigned char>(left)] < counts[static_cast<unsigned char>(right)];
    });
    if (rarest != m_text.end())
        m_rarest = static_cast<std::size_t>(rarest - m_text.begin());
}

bool TextSearch::isWhole(const char *begin, const char *match, const char *end) const
{
    if (m_beginsWithAccent && match != begin && match[-1] != separator)
        return false;
    return !isAccent(match + m_text.size(), end);
}

const char *TextSearch::find(const char *begin, const char *end) const
{
    const std::size_t size = m_text.size();
    if (size == 0 || static_cast<std::size_t>(end - begin) < size)
        return nullptr;
    // A text that is all but one letter repeated would be compared over and over.
    constexpr std::size_t longest = 32;
    const char rarest = m_text[m_rarest];
    const char *const last = end - size + m_rarest;
    const char *from = begin + m_rarest;
    while (from <= last) {
        const char *match = nullptr;
        if (size > longest) {
            const char *const start = from - m_rarest;
            match = static_cast<const char *>(
                memmem(start, static_cast<std::size_t>(end - start), m_text.data(), size));
            if (!match)
                return nullptr;
        } else {
            const auto *found = static_cast<const char *>(
                std::memchr(from, rarest, static_cast<std::size_t>(last - from) + 1));
            if (!found)
                return nullptr;
            match = found - m_rarest;
        }
        from = match + m_rarest + 1;
        if (std::memcmp(match, m_text.data(), size) == 0 && isWhole(begin, match, end))
            return match;
    }
    return nullptr;
}

bool TextSearch::isNarrowerThan(const TextSearch &other) const
{
    return other.isIn(m_text);
}

} // namespace zeph
