#include "sources/CountryCode.h"

#include "platform/Ascii.h"
#include "sources/LastByte.h"
#include "sources/Utf8Space.h"

#include <QString>
#include <QTextBoundaryFinder>

#include <algorithm>

namespace zeph {

namespace {

// Characters as people count them: a letter with its accents is one.
bool hasTwoCharacters(const QString &text)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    return finder.toNextBoundary() > 0 && finder.toNextBoundary() == text.size();
}

CountryCode codeFrom(QByteArrayView piece)
{
    if (std::all_of(piece.begin(), piece.end(), isAscii)) {
        if (piece.size() != 2)
            return {};
        return { upperAscii(piece[0]), upperAscii(piece[1]) };
    }
    const QString text = textFromUtf8(piece).toUpper();
    return hasTwoCharacters(text) ? text.toStdString() : CountryCode();
}

// The first piece that is not empty, where `delimits` tells what stands between pieces.
template <typename Predicate> QByteArrayView firstPiece(QByteArrayView text, Predicate delimits)
{
    const auto begin = std::find_if_not(text.begin(), text.end(), delimits);
    return QByteArrayView(begin, std::find_if(begin, text.end(), delimits));
}

} // namespace

CountryCode declaredCountryCode(QByteArrayView value)
{
    return codeFrom(firstPiece(value,
        [](char character) { return character == ',' || character == ';' || character == ' '; }));
}

CountryCode inferredCountryCode(QByteArrayView channelID)
{
    QByteArrayView name = firstPiece(channelID, [](char character) { return character == '@'; });
    while (name.endsWith('.'))
        name.chop(1);
    return codeFrom(name.sliced(lastIndexOf(name, '.') + 1));
}

} // namespace zeph
