#include "sources/web/JavaScriptString.h"

#include <algorithm>

namespace zeph {

namespace {

// "<" and ">" delimit elements and comments of the page around the script.
bool standsForItself(QChar character)
{
    constexpr QLatin1StringView special { "\"\\<>&" };
    return character >= u' ' && character < u'\x7f' && !special.contains(character);
}

} // namespace

QString javaScriptString(const std::optional<QString> &text)
{
    if (!text || !text->isValidUtf16())
        return QStringLiteral("null");
    QString literal = QStringLiteral("\"");
    for (const QChar character : *text) {
        if (standsForItself(character))
            literal += character;
        else
            literal +=
                QStringLiteral("\\u%1").arg(uint(character.unicode()), 4, 16, QLatin1Char('0'));
    }
    return literal + QLatin1Char('"');
}

} // namespace zeph
