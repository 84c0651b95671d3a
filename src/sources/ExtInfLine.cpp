#include "sources/ExtInfLine.h"

#include "sources/Utf8Space.h"

#include <algorithm>
#include <array>

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

constexpr char toLowerAscii(char character)
{
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                : character;
}

bool endsWithIgnoringCase(QByteArrayView text, QByteArrayView name)
{
    return text.size() >= name.size() && toLowerAscii(text.back()) == name.back()
        && std::equal(name.begin(), name.end(), text.end() - name.size(),
            [](char expected, char actual) { return expected == toLowerAscii(actual); });
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
    for (qsizetype quote = trimmed.indexOf('"'); quote >= 0;) {
        const qsizetype next = trimmed.indexOf('"', quote + 1);
        if (next < 0)
            break;
        if (trimmed[quote - 1] == '=') {
            const QByteArrayView before = trimmed.first(quote - 1);
            for (std::size_t i = 0; i < attributes.size(); ++i) {
                if (!found[i] && endsWithIgnoringCase(before, attributes[i].name)) {
                    found[i] = true;
                    result.*attributes[i].value =
                        trimmedUtf8(trimmed.sliced(quote + 1, next - quote - 1));
                }
            }
        }
        quote = next;
    }
    return result;
}

} // namespace zeph
