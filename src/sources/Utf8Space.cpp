#include "sources/Utf8Space.h"

#include "platform/Ascii.h"

#include <QStringDecoder>

#include <algorithm>

namespace zeph {

namespace {

bool isAsciiSpace(unsigned char byte)
{
    return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

bool isTwoByteSpace(unsigned char first, unsigned char second)
{
    return first == 0xc2 && (second == 0x85 || second == 0xa0);
}

bool isThreeByteSpace(unsigned char first, unsigned char second, unsigned char third)
{
    switch (first) {
    case 0xe1: // U+1680
        return second == 0x9a && third == 0x80;
    case 0xe2: // U+2000 to U+200A, U+2028, U+2029, U+202F, U+205F
        if (second == 0x80)
            return third <= 0x8a || third == 0xa8 || third == 0xa9 || third == 0xaf;
        return second == 0x81 && third == 0x9f;
    case 0xe3: // U+3000
        return second == 0x80 && third == 0x80;
    case 0xef: // U+FEFF
        return second == 0xbb && third == 0xbf;
    default:
        return false;
    }
}

// The number of bytes of the white-space character that begins, or ends, a text; 0 without one.
template <bool atEnd> qsizetype spaceSize(const unsigned char *bytes, qsizetype size)
{
    const auto at = [&](qsizetype length) { return atEnd ? bytes + size - length : bytes; };
    if (size == 0)
        return 0;
    if (isAscii(static_cast<char>(*at(1))))
        return isAsciiSpace(*at(1)) ? 1 : 0;
    if (size >= 2 && isTwoByteSpace(at(2)[0], at(2)[1]))
        return 2;
    if (size >= 3 && isThreeByteSpace(at(3)[0], at(3)[1], at(3)[2]))
        return 3;
    return 0;
}

// Bytes that may begin a newline character: LF, VT, FF, CR, and the first ones of NEL, LS and PS.
constexpr auto mayBeginNewline = [](unsigned char byte) {
    return static_cast<unsigned char>(byte - '\n') < 4 || byte == 0xc2 || byte == 0xe2;
};

const unsigned char *findNewlineCandidate(const unsigned char *position, const unsigned char *end)
{
    // Whole blocks first: the compiler turns the inner loop into a few vector instructions.
    constexpr std::ptrdiff_t blockSize = 32;
    while (end - position >= blockSize) {
        unsigned char found = 0;
        for (std::ptrdiff_t i = 0; i < blockSize; ++i)
            found |= static_cast<unsigned char>(static_cast<unsigned char>(position[i] - '\n') < 4)
                | static_cast<unsigned char>(position[i] == 0xc2)
                | static_cast<unsigned char>(position[i] == 0xe2);
        if (found)
            break;
        position += blockSize;
    }
    return std::find_if(position, end, mayBeginNewline);
}

qsizetype newlineSize(const unsigned char *position, const unsigned char *end)
{
    switch (*position) {
    case 0xc2:
        return end - position >= 2 && position[1] == 0x85 ? 2 : 0;
    case 0xe2:
        return end - position >= 3 && position[1] == 0x80
                && (position[2] == 0xa8 || position[2] == 0xa9)
            ? 3
            : 0;
    default:
        return 1;
    }
}

} // namespace

QString textFromUtf8(QByteArrayView utf8)
{
    QStringDecoder decode(QStringDecoder::Utf8,
        QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    return decode(utf8);
}

QByteArrayView trimmedUtf8(QByteArrayView text)
{
    const auto *bytes = reinterpret_cast<const unsigned char *>(text.data());
    qsizetype size = text.size();
    while (const qsizetype space = spaceSize<false>(bytes, size)) {
        bytes += space;
        size -= space;
    }
    while (const qsizetype space = spaceSize<true>(bytes, size))
        size -= space;
    return QByteArrayView(bytes, size);
}

LineSplitter::LineSplitter(QByteArrayView text)
    : m_position(text.data()), m_end(text.data() + text.size())
{
}

bool LineSplitter::next()
{
    if (!m_position)
        return false;
    const auto *const begin = reinterpret_cast<const unsigned char *>(m_position);
    const auto *const end = reinterpret_cast<const unsigned char *>(m_end);
    const unsigned char *position = begin;
    while ((position = findNewlineCandidate(position, end)) != end) {
        const qsizetype size = newlineSize(position, end);
        if (size > 0) {
            m_line = QByteArrayView(begin, position);
            m_position += (position - begin) + size;
            return true;
        }
        ++position;
    }
    m_line = QByteArrayView(begin, end);
    m_position = nullptr;
    return true;
}

} // namespace zeph
