#include "sources/ExtInfLine.h"

#include "platform/Ascii.h"
#include "sources/Utf8Space.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace zeph {

namespace {

constexpr QByteArrayView directive("#EXTINF:");

struct Attribute {
    /// In lower case.
    QByteArrayView name;
    QByteArrayView ExtInfLine::*value;
};

constexpr std::array attributes {
    Attribute { "tvg-name", &ExtInfLine::tvgName },
    Attribute { "tvg-logo", &ExtInfLine::tvgLogo },
    Attribute { "group-title", &ExtInfLine::groupTitle },
    Attribute { "tvg-country", &ExtInfLine::tvgCountry },
    Attribute { "country", &ExtInfLine::country },
    Attribute { "tvg-id", &ExtInfLine::tvgID },
};

bool endsWithIgnoringCase(QByteArrayView text, QByteArrayView name)
{
    return text.size() >= name.size() && lowerAscii(text.back()) == name.back()
        && std::equal(name.begin(), name.end(), text.end() - name.size(),
            [](char expected, char actual) { return expected == lowerAscii(actual); });
}

const char *findQuote(const char *begin, const char *end)
{
    return static_cast<const char *>(
        std::memchr(begin, '"', static_cast<std::size_t>(end - begin)));
}

// The first comma ends the attributes, be it quoted or not. A title of nothing but blanks is one,
// but no title at all makes a title of what stands before the comma.
QByteArrayView titleOf(QByteArrayView trimmed, bool blanksFollow)
{
    const qsizetype comma = trimmed.indexOf(',');
    if (comma < 0)
        return trimmed;
    const QByteArrayView title = trimmed.sliced(comma + 1);
    if (!title.isEmpty() || blanksFollow)
        return trimmedUtf8(title);
    return trimmedUtf8(trimmed.first(comma));
}

} // namespace

bool ExtInfLine::isOne(QByteArrayView trimmed)
{
    return trimmed.startsWith(directive);
}

ExtInfLine ExtInfLine::read(QByteArrayView trimmed, bool blanksFollow)
{
    ExtInfLine result;
    result.title = titleOf(trimmed, blanksFollow);

    // Each attribute starts at its name, "=" and a quote, wherever that is for the first time, and
    // ends at the next quote. Every quote may be the opening one of some attribute.
    std::array<bool, attributes.size()> found {};
    const char *quote = findQuote(trimmed.begin(), trimmed.end());
    while (quote) {
        const char *const next = findQuote(quote + 1, trimmed.end());
        if (!next)
            break;
        // The directive stands before the first quote.
        if (quote[-1] == '=') {
            const QByteArrayView before(trimmed.begin(), quote - 1);
            for (std::size_t i = 0; i < attributes.size(); ++i) {
                if (!found[i] && endsWithIgnoringCase(before, attributes[i].name)) {
                    found[i] = true;
                    result.*attributes[i].value = trimmedUtf8(QByteArrayView(quote + 1, next));
                }
            }
        }
        quote = next;
    }
    return result;
}

} // namespace zeph
