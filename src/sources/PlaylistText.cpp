#include "sources/PlaylistText.h"

#include "platform/Ascii.h"

#include <QStringEncoder>

#include <algorithm>

namespace zeph {

namespace {

// Without the detour over UTF-16, which would take twice the memory of the text.
QByteArray utf8FromLatin1(QByteArrayView latin1)
{
    const qsizetype beyondAscii =
        latin1.size() - std::count_if(latin1.begin(), latin1.end(), isAscii);
    QByteArray utf8;
    utf8.reserve(latin1.size() + beyondAscii);
    for (const char character : latin1) {
        if (isAscii(character)) {
            utf8 += character;
        } else {
            const auto byte = static_cast<unsigned char>(character);
            utf8 += static_cast<char>(0xc0 | (byte >> 6));
            utf8 += static_cast<char>(0x80 | (byte & 0x3f));
        }
    }
    return utf8;
}

} // namespace

PlaylistText::PlaylistText(QByteArray utf8) : m_utf8(std::move(utf8)) { }

PlaylistText PlaylistText::fromBytes(const QByteArray &bytes)
{
    return PlaylistText(bytes.isValidUtf8() ? bytes : utf8FromLatin1(bytes));
}

PlaylistText PlaylistText::fromString(QStringView text)
{
    QStringEncoder encode(QStringEncoder::Utf8);
    return PlaylistText(encode(text));
}

} // namespace zeph
