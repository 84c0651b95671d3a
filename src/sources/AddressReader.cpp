#include "sources/AddressReader.h"

#include "platform/Ascii.h"
#include "sources/AddressParts.h"
#include "sources/LastByte.h"
#include "sources/Utf8Space.h"

#include <QString>
#include <QUrl>

#include <algorithm>
#include <array>

namespace zeph {

namespace {

enum ByteTrait : unsigned char {
    Refused = 1,
    Percent = 2,
    Hash = 4,
    BeyondAscii = 8,
    Dot = 16,
    Slash = 32, // Dot, shifted by one
    InHost = 64,
};

constexpr auto byteTraits = [] {
    std::array<unsigned char, 256> traits {};
    for (std::size_t byte = 0; byte <= ' '; ++byte)
        traits[byte] = Refused;
    for (const char character : { '"', '<', '>', '\\', '^', '`', '{', '|', '}', '\x7f' })
        traits[static_cast<unsigned char>(character)] = Refused;
    for (std::size_t byte = 0x80; byte <= 0xff; ++byte)
        traits[byte] = BeyondAscii;
    for (char character = '0'; character <= '9'; ++character)
        traits[static_cast<unsigned char>(character)] = InHost;
    for (char character = 'a'; character <= 'z'; ++character)
        traits[static_cast<unsigned char>(character)] = InHost;
    for (char character = 'A'; character <= 'Z'; ++character)
        traits[static_cast<unsigned char>(character)] = InHost;
    traits['_'] = InHost;
    traits['%'] = Percent;
    traits['#'] = Hash;
    traits['.'] = Dot;
    traits['/'] = Slash;
    return traits;
}();

// The traits of all bytes together; Dot only for a dot that follows a slash.
unsigned traitsOf(QByteArrayView text)
{
    unsigned all = 0;
    unsigned previous = 0;
    for (const char character : text) {
        const unsigned traits = byteTraits[static_cast<unsigned char>(character)];
        all |= traits & (~unsigned { Dot } | (previous >> 1));
        previous = traits;
    }
    return all;
}

constexpr auto isDigit = [](char character) { return character >= '0' && character <= '9'; };

constexpr auto endsAuthority = [](char character) {
    return character == '/' || character == '?' || character == '#';
};

bool hasOnlyWholeEscapes(QByteArrayView text)
{
    for (qsizetype i = text.indexOf('%'); i >= 0; i = text.indexOf('%', i + 3)) {
        if (text.size() - i < 3 || !isHexDigit(text[i + 1]) || !isHexDigit(text[i + 2]))
            return false;
    }
    return true;
}

bool hasSpacesOrControlCharacters(QByteArrayView utf8)
{
    const QString text = textFromUtf8(utf8);
    return std::any_of(text.begin(), text.end(), [](QChar character) {
        return character.isSpace() || character.category() == QChar::Other_Control;
    });
}

bool isPort(QByteArrayView text)
{
    constexpr int highest = 65535;
    int port = 0;
    for (const char character : text) {
        if (!isDigit(character) || port > highest)
            return false;
        port = 10 * port + (character - '0');
    }
    return port <= highest;
}

// The size of the host that `text` begins with, if that is one in anybody's eyes: labels of
// letters, digits, "_" and single inner hyphens. Otherwise 0.
qsizetype ordinaryHostSize(QByteArrayView text)
{
    constexpr qsizetype longestLabel = 63;
    char previous = '.';
    qsizetype size = 0;
    for (; size < text.size(); ++size) {
        const char character = text[size];
        if (!(byteTraits[static_cast<unsigned char>(character)] & InHost)) {
            if (character != '.' && character != '-')
                break;
            if (previous == '.' || previous == '-')
                return 0;
        }
        previous = character;
    }
    return previous == '.' || previous == '-' || size > longestLabel ? 0 : size;
}

bool startsWithOrdinaryAuthority(QByteArrayView text)
{
    const qsizetype hostSize = ordinaryHostSize(text);
    if (hostSize == 0)
        return false;
    text = text.sliced(hostSize);
    if (text.isEmpty() || endsAuthority(text.front()))
        return true;
    if (text.front() != ':')
        return false;
    text = text.sliced(1);
    return isPort(text.first(std::find_if(text.begin(), text.end(), endsAuthority) - text.begin()));
}

// Any host in the form in which it is looked up. Empty when it is none.
QByteArray encodedHost(QByteArrayView host)
{
    if (ordinaryHostSize(host) == host.size())
        return host.toByteArray();
    return QUrl(QStringLiteral("//") + textFromUtf8(host)).toEncoded().mid(2);
}

struct Authority {
    QByteArrayView userInfo; // with its "@"
    QByteArrayView host;
    QByteArrayView port; // with its ":"
};

std::optional<Authority> splitAuthority(QByteArrayView text)
{
    Authority authority;
    const qsizetype userInfoSize = lastIndexOf(text, '@') + 1;
    authority.userInfo = text.first(userInfoSize);
    text = text.sliced(userInfoSize);
    if (authority.userInfo.chopped(userInfoSize > 0).contains('@'))
        return std::nullopt;

    const qsizetype bracket = lastIndexOf(text, ']');
    const qsizetype colon = text.indexOf(':', bracket + 1);
    const qsizetype hostSize = colon < 0 ? text.size() : colon;
    authority.host = text.first(hostSize);
    authority.port = text.sliced(hostSize);
    if (!authority.port.isEmpty() && !isPort(authority.port.sliced(1)))
        return std::nullopt;
    return authority;
}

void appendEncoded(QByteArray &output, QByteArrayView utf8)
{
    constexpr char digits[] = "0123456789ABCDEF";
    for (const char character : utf8) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte < 0x80) {
            output += character;
        } else {
            const char escape[] { '%', digits[byte >> 4], digits[byte & 15] };
            output.append(escape, sizeof escape);
        }
    }
}

// Encodes what follows the authority, too: there, a "#" within the fragment.
void appendEncodedRest(QByteArray &output, QByteArrayView utf8)
{
    const qsizetype hash = utf8.indexOf('#');
    const qsizetype fragment = hash < 0 ? utf8.size() : hash + 1;
    appendEncoded(output, utf8.first(fragment));
    appendEncoded(output, utf8.sliced(fragment).toByteArray().replace('#', "%23"));
}

} // namespace

std::optional<AddressReader::Address> AddressReader::read(QByteArrayView utf8)
{
    const unsigned traits = traitsOf(utf8);
    if (utf8.isEmpty() || traits & Refused || (traits & Percent && !hasOnlyWholeEscapes(utf8))
        || (traits & BeyondAscii && hasSpacesOrControlCharacters(utf8)))
        return std::nullopt;

    const qsizetype scheme = schemeSize(utf8);
    const QByteArrayView prefix = utf8.first(scheme > 0 ? scheme + 1 : 0);
    const QByteArrayView rest = utf8.sliced(prefix.size());
    const bool needsEncoding = traits & (BeyondAscii | Hash);
    if (rest.size() >= 2 && rest[0] == '/' && rest[1] == '/') {
        const bool isResolved = scheme > 0 && !(traits & Dot);
        if (!needsEncoding && startsWithOrdinaryAuthority(rest.sliced(2)))
            return Address { utf8, isResolved };
        return rewritten(prefix, rest.sliced(2), isResolved);
    }

    // Without a scheme, a ":" in the first segment is the end of something that is not one.
    const auto firstSegmentEnd = std::find_if(rest.begin(), rest.end(), endsAuthority);
    if (scheme == 0 && std::find(rest.begin(), firstSegmentEnd, ':') != firstSegmentEnd)
        return std::nullopt;
    if (!needsEncoding)
        return Address { utf8, false };
    m_rewritten = prefix.toByteArray();
    appendEncodedRest(m_rewritten, rest);
    return Address { m_rewritten, false };
}

std::optional<AddressReader::Address> AddressReader::rewritten(
    QByteArrayView prefix, QByteArrayView afterSlashes, bool isResolved)
{
    const qsizetype authoritySize =
        std::find_if(afterSlashes.begin(), afterSlashes.end(), endsAuthority)
        - afterSlashes.begin();
    const auto authority = splitAuthority(afterSlashes.first(authoritySize));
    if (!authority)
        return std::nullopt;
    const QByteArray host = encodedHost(authority->host);
    if (host.isEmpty() && !authority->host.isEmpty())
        return std::nullopt;
    m_rewritten = prefix.toByteArray();
    m_rewritten += "//";
    appendEncoded(m_rewritten, authority->userInfo);
    m_rewritten += host;
    m_rewritten.append(authority->port);
    appendEncodedRest(m_rewritten, afterSlashes.sliced(authoritySize));
    return Address { m_rewritten, isResolved };
}

} // namespace zeph
