#include "sources/UrlPath.h"

#include <QUrlQuery>

#include <algorithm>
#include <iterator>

namespace zeph {

namespace {

QStringList encodedPathSegments(const QUrl &url)
{
    return url.path(QUrl::FullyEncoded).split(QLatin1Char('/'), Qt::SkipEmptyParts);
}

// Nothing when the decoded bytes are not UTF-8.
std::optional<QString> removingPercentEncoding(const QString &text)
{
    const QByteArray decoded = QByteArray::fromPercentEncoding(text.toUtf8());
    if (!decoded.isValidUtf8())
        return std::nullopt;
    return QString::fromUtf8(decoded);
}

QString lastPathSegment(const QUrl &url)
{
    const QStringList segments = pathSegments(url);
    return segments.isEmpty() ? QString() : segments.constLast();
}

// Where the extension of a name begins, with its dot; its end when it has none.
qsizetype extensionStart(const QString &name)
{
    const qsizetype dot = name.isEmpty() ? 0 : name.lastIndexOf(QLatin1Char('.'));
    return dot > 0 ? dot : name.size();
}

bool isBlank(QChar character)
{
    constexpr char16_t byteOrderMark = 0xfeff;
    return character.isSpace() || character == byteOrderMark;
}

} // namespace

QStringList pathSegments(const QUrl &url)
{
    QStringList segments;
    for (const QString &segment : encodedPathSegments(url))
        segments += removingPercentEncoding(segment).value_or(segment);
    return segments;
}

std::optional<QString> pathSegmentAfter(const QUrl &url, const QStringList &keywords)
{
    const QStringList segments = pathSegments(url);
    for (qsizetype i = 0; i + 1 < segments.size(); ++i) {
        if (keywords.contains(segments[i]))
            return segments[i + 1];
    }
    return std::nullopt;
}

std::optional<QString> decodedLastPathComponent(const QUrl &url)
{
    const QStringList segments = encodedPathSegments(url);
    return segments.isEmpty() ? QString() : removingPercentEncoding(segments.constLast());
}

QString pathExtension(const QUrl &url)
{
    const QString name = lastPathSegment(url);
    return name.sliced(extensionStart(name)).mid(1);
}

QString lastPathComponentWithoutExtension(const QUrl &url)
{
    const QString name = lastPathSegment(url);
    return name.first(extensionStart(name));
}

bool isOnDomain(const QUrl &url, QLatin1StringView domain)
{
    const QString host = url.host().toLower();
    return host == domain || (host.endsWith(domain) && host.chopped(domain.size()).endsWith(u'.'));
}

std::optional<QString> queryValue(const QUrl &url, const QString &name)
{
    const auto items = QUrlQuery(url).queryItems(QUrl::FullyDecoded);
    for (const auto &[itemName, value] : items) {
        if (itemName == name)
            return trimmedOrNothing(value);
    }
    return std::nullopt;
}

QString trimmedText(const QString &text)
{
    const auto first = std::find_if_not(text.begin(), text.end(), isBlank);
    const auto last = std::find_if_not(text.rbegin(), std::make_reverse_iterator(first), isBlank);
    return QString(first, last.base() - first);
}

std::optional<QString> trimmedOrNothing(const QString &text)
{
    const QString trimmed = trimmedText(text);
    if (trimmed.isEmpty())
        return std::nullopt;
    return trimmed;
}

} // namespace zeph
