#include "sources/NaivePlaylistParser.h"

#include <QRegularExpression>
#include <QStringDecoder>
#include <QTextBoundaryFinder>

namespace zeph::tests {

namespace {

const QString newlines = QStringLiteral("\n\v\f\r\u0085\u2028\u2029");

QString decoded(const QByteArray &bytes)
{
    if (!bytes.isValidUtf8())
        return QString::fromLatin1(bytes);
    // A byte-order mark at the start is not kept, any other one is.
    return QString::fromUtf8(bytes);
}

bool isBlank(QChar character)
{
    return character.isSpace() || character == QChar(QChar::ByteOrderMark);
}

QString trimmed(QString text)
{
    while (!text.isEmpty() && isBlank(text.front()))
        text.remove(0, 1);
    while (!text.isEmpty() && isBlank(text.back()))
        text.chop(1);
    return text;
}

QString withoutDotSegments(const QString &path)
{
    QStringList kept;
    QStringList segments = path.split(u'/');
    for (qsizetype i = 0; i < segments.size(); ++i) {
        const bool isDots = segments[i] == QLatin1String(".") || segments[i] == QLatin1String("..");
        const bool isFirst = kept.size() <= 1 && path.startsWith(u'/');
        if (segments[i] == QLatin1String("..") && !kept.isEmpty() && !isFirst)
            kept.removeLast();
        if (!isDots)
            kept += segments[i];
        else if (i + 1 == segments.size() && !kept.isEmpty())
            kept += QString();
    }
    return kept.join(u'/');
}

struct Pieces {
    QString scheme, authority, path, query, fragment; // with their delimiters
};

Pieces piecesOf(const QUrl &url)
{
    static const QRegularExpression pattern(
        QStringLiteral("^([A-Za-z][A-Za-z0-9+.-]*:)?(//[^/?#]*)?([^?#]*)(\\?[^#]*)?(#.*)?$"));
    const auto match = pattern.match(url.toString(QUrl::FullyEncoded));
    return { match.captured(1), match.captured(2), match.captured(3), match.captured(4),
        match.captured(5) };
}

// QUrl::resolved() is no measure: it merges slashes, differently from version to version.
QUrl resolved(const QUrl &baseUrl, const QUrl &url)
{
    const Pieces base = piecesOf(baseUrl);
    Pieces pieces = piecesOf(url);
    if (pieces.scheme.isEmpty()) {
        pieces.scheme = base.scheme;
        if (pieces.authority.isEmpty()) {
            pieces.authority = base.authority;
            if (pieces.path.isEmpty()) {
                pieces.path = base.path;
                if (pieces.query.isEmpty())
                    pieces.query = base.query;
            } else if (!pieces.path.startsWith(u'/')) {
                pieces.path.prepend(base.path.contains(u'/')
                        ? base.path.left(base.path.lastIndexOf(u'/') + 1)
                        : QStringLiteral("/"));
            }
        }
    }
    return QUrl(pieces.scheme + pieces.authority + withoutDotSegments(pieces.path) + pieces.query
        + pieces.fragment);
}

QStringList lines(const QString &text)
{
    QStringList result { QString() };
    for (const QChar character : text) {
        if (newlines.contains(character))
            result += QString();
        else
            result.last() += character;
    }
    return result;
}

std::optional<QString> attribute(const QString &name, const QString &line)
{
    const QString opening = name + QStringLiteral("=\"");
    const qsizetype start = line.indexOf(opening, 0, Qt::CaseInsensitive);
    if (start < 0)
        return std::nullopt;
    const QString rest = line.mid(start + opening.size());
    if (!rest.contains(u'"'))
        return std::nullopt;
    const QString value = trimmed(rest.section(u'"', 0, 0));
    return value.isEmpty() ? std::nullopt : std::optional(value);
}

QString title(const QString &wholeLine)
{
    const qsizetype comma = wholeLine.indexOf(u',');
    if (comma < 0)
        return trimmed(wholeLine);
    const QString rest = wholeLine.mid(comma + 1);
    if (rest.isEmpty())
        return trimmed(wholeLine.left(comma));
    return trimmed(rest);
}

qsizetype characterCount(const QString &text)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype count = 0;
    while (finder.toNextBoundary() >= 0)
        ++count;
    return count;
}

std::optional<QString> codeFrom(const QString &piece)
{
    const QString code = piece.toUpper();
    return characterCount(code) == 2 ? std::optional(code) : std::nullopt;
}

std::optional<QString> countryCode(const QString &line)
{
    auto value = attribute(QStringLiteral("tvg-country"), line);
    if (!value)
        value = attribute(QStringLiteral("country"), line);
    static const QRegularExpression delimiters(QStringLiteral("[,; ]"));
    if (value) {
        if (auto code = codeFrom(value->split(delimiters, Qt::SkipEmptyParts).value(0)))
            return code;
    }
    const auto id = attribute(QStringLiteral("tvg-id"), line);
    if (!id)
        return std::nullopt;
    const QStringList pieces =
        id->split(u'@', Qt::SkipEmptyParts).value(0).split(u'.', Qt::SkipEmptyParts);
    return pieces.isEmpty() ? std::nullopt : codeFrom(pieces.last());
}

std::optional<QUrl> address(const QString &text)
{
    static const QRegularExpression refused(QStringLiteral("[\"<>\\\\^`{}|]|%(?![0-9A-Fa-f]{2})"));
    if (text.isEmpty() || refused.match(text).hasMatch())
        return std::nullopt;
    for (const QChar character : text) {
        if (character.isSpace() || character.category() == QChar::Other_Control)
            return std::nullopt;
    }
    const QUrl url(text);
    return url.isValid() ? std::optional(url) : std::nullopt;
}

QString nameOf(const QUrl &url)
{
    const QStringList segments = url.path(QUrl::FullyEncoded).split(u'/', Qt::SkipEmptyParts);
    if (!segments.isEmpty()) {
        const QByteArray name = QByteArray::fromPercentEncoding(segments.last().toLatin1());
        if (name.isValidUtf8())
            return QStringDecoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom)(
                name);
    }
    return url.host().isEmpty() ? QStringLiteral("Stream") : url.host();
}

} // namespace

QList<NaiveEntry> parseNaively(const QByteArray &bytes, const QUrl &base)
{
    QList<NaiveEntry> entries;
    NaiveEntry pending;
    for (const QString &wholeLine : lines(decoded(bytes))) {
        const QString line = trimmed(wholeLine);
        if (line.isEmpty())
            continue;
        if (line.startsWith(QLatin1StringView("#EXTINF:"))) {
            pending = {};
            pending.name = title(wholeLine);
            if (pending.name.isEmpty())
                pending.name = attribute(QStringLiteral("tvg-name"), line).value_or(QString());
            pending.logoURL =
                address(attribute(QStringLiteral("tvg-logo"), line).value_or(QString()));
            pending.groupTitle = attribute(QStringLiteral("group-title"), line);
            pending.countryCode = countryCode(line);
        } else if (!line.startsWith(u'#')) {
            const auto url = address(line);
            if (!url)
                continue;
            pending.url = resolved(base, *url);
            if (pending.name.isEmpty())
                pending.name = nameOf(pending.url);
            entries += pending;
            pending = {};
        }
    }
    return entries;
}

} // namespace zeph::tests
