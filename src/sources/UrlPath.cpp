#include "sources/UrlPath.h"

#include <QUrlQuery>

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

std::optional<QString> trimmedOrNothing(const QString &text)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return std::nullopt;
    return trimmed;
}

} // namespace zeph
