#include "sources/AddressReader.h"

#include "sources/AddressParts.h"

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
};

constexpr auto byteTraits = [] {
    std::array<unsigned char, 256> traits {};
    for (std::size_t byte = 0; byte <= ' '; ++byte)
        traits[byte] = Refused;
    for (const char character : { '"', '<', '>', '\\', '^', '`', '{', '|', '}', '\x7f' })
        traits[static_cast<unsigned char>(character)] = Refused;
    for (std::size_t byte = 0x80; byte <= 0xff; ++byte)
        traits[byte] = BeyondAscii;
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

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

bool isHexDigit(char character)
{
    return isDigit(character) || (character >= 'a' && character <= 'f')
        || (character >= 'A' && character <= 'F');
}

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
    const QString text = QString::fromUtf8(utf8);
    return std::any_of(text.begin(), text.end(), [](QChar character) {
        return character.isSpace() || character.category() == QChar::Other_Control;
    });
}

bool isPort(QByteArrayView text)
{
    return std::all_of(text.begin(), text.end(), isDigit) && text.size() <= 5
        && (text.isEmpty() || text.toByteArray().toInt() <= 65535);
}

// Whether the host is one in anybody's eyes: labels of letters, digits, "_" and single inner
// hyphens.
bool isOrdinaryHost(QByteArrayView host)
{
    constexpr qsizetype longestLabel = 63;
    if (host.size() > longestLabel)
        return false;
    char previous = '.';
    for (const char character : host) {
        const bool joins = character == '.' || character == '-';
        if (joins ? previous == '.' || previous == '-'
                  : !isDigit(character) && !(character >= 'a' && character <= 'z')
                    && !(character >= 'A' && character <= 'Z') && character != '_')
            return false;
        previous = character;
    }
    return previous != '.' && previous != '-';
}

// Any other host in the form in which it is looked up. Empty when it is none.
QByteArray encodedHost(QByteArrayView host)
{
    return QUrl(QStringLiteral("//") + QString::fromUtf8(host)).toEncoded().mid(2);
}

struct Authority {
    QByteArrayView userInfo; // with its "@"
    QByteArrayView host;
    QByteArrayView port; // with its ":"
};

std::optional<Authority> splitAuthority(QByteArrayView text)
{
    Authority authority;
    const qsizetype userInfoSize = text.lastIndexOf('@') + 1;
    authority.userInfo = text.first(userInfoSize);
    text = text.sliced(userInfoSize);
    if (authority.userInfo.chopped(userInfoSize > 0).contains('@'))
        return std::nullopt;

    const qsizetype bracket = text.lastIndexOf(']');
    const qsizetype colon = text.indexOf(':', bracket + 1);
    const qsizetype hostSize = colon < 0 ? text.size() : colon;
    authority.host = text.first(hostSize);
    authority.port = text.sliced(hostSize);
    if (!authority.port.isEmpty() && !isPort(authority.port.sliced(1)))
        return std::nullopt;
    return authority;
}

bool endsAuthority(char character)
{
    return character == '/' || character == '?' || character == '#';
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
    QByteArrayView rest = utf8.sliced(scheme > 0 ? scheme + 1 : 0);
    const bool hasAuthority = rest.startsWith("//");
    if (!hasAuthority) {
        // Without a scheme, a ":" in the first segment is the end of something that is not one.
        const auto firstSegmentEnd = std::find_if(rest.begin(), rest.end(), endsAuthority);
        if (scheme == 0 && std::find(rest.begin(), firstSegmentEnd, ':') != firstSegmentEnd)
            return std::nullopt;
        if (!(traits & (BeyondAscii | Hash)))
            return Address { utf8, false };
        m_rewritten.clear();
        m_rewritten.append(utf8.first(utf8.size() - rest.size()));
        appendEncodedRest(m_rewritten, rest);
        return Address { m_rewritten, false };
    }

    rest = rest.sliced(2);
    const qsizetype authoritySize =
        std::find_if(rest.begin(), rest.end(), endsAuthority) - rest.begin();
    const auto authority = splitAuthority(rest.first(authoritySize));
    if (!authority)
        return std::nullopt;
    rest = rest.sliced(authoritySize);

    const bool isResolved = scheme > 0 && !(traits & Dot);
    const bool keepsHost = authority->host.isEmpty() || isOrdinaryHost(authority->host);
    if (keepsHost && !(traits & (BeyondAscii | Hash)))
        return Address { utf8, isResolved };
    const QByteArray host =
        keepsHost ? authority->host.toByteArray() : encodedHost(authority->host);
    if (!keepsHost && host.isEmpty())
        return std::nullopt;
    m_rewritten.clear();
    m_rewritten.append(utf8.first(scheme > 0 ? scheme + 3 : 2));
    appendEncoded(m_rewritten, authority->userInfo);
    m_rewritten += host;
    m_rewritten.append(authority->port);
    appendEncodedRest(m_rewritten, rest);
    return Address { m_rewritten, isResolved };
}

} // namespace zeph
