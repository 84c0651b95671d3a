#include "sources/YouTubeContent.h"

#include "sources/ServiceHosts.h"
#include "sources/UrlPath.h"

namespace zeph {

namespace {

std::optional<QString> videoIDCandidate(const QUrl &url)
{
    if (url.host().toLower() == youTubeShortHost) {
        const QStringList segments = pathSegments(url);
        return segments.isEmpty() ? std::nullopt : std::optional(segments.constFirst());
    }
    if (url.path() == QLatin1StringView("/watch"))
        return queryValue(url, QStringLiteral("v"));
    return pathSegmentAfter(
        url, { QStringLiteral("shorts"), QStringLiteral("embed"), QStringLiteral("live") });
}

} // namespace

std::optional<YouTubeContent> YouTubeContent::fromUrl(const QUrl &url)
{
    const bool recognised = url.host().toLower() == youTubeShortHost
        || isOnDomain(url, youTubeMainHost) || isOnDomain(url, youTubeNoCookieHost);
    if (!recognised)
        return std::nullopt;

    YouTubeContent content;
    if (const auto candidate = videoIDCandidate(url))
        content.videoID = trimmedOrNothing(*candidate);
    content.playlistID = queryValue(url, QStringLiteral("list"));
    if (!content.videoID && !content.playlistID)
        return std::nullopt;
    return content;
}

QString YouTubeContent::id() const
{
    return videoID.value_or(QString()) + QLatin1Char('|') + playlistID.value_or(QString());
}

} // namespace zeph
