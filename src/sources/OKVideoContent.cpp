#include "sources/OKVideoContent.h"

#include "sources/ServiceHosts.h"
#include "sources/UrlPath.h"

#include <algorithm>

namespace zeph {

namespace {

bool isAllowedInID(char32_t character)
{
    return QChar::isLetterOrNumber(character) || QChar::isMark(character) || character == U'-'
        || character == U'_';
}

} // namespace

std::optional<OKVideoContent> OKVideoContent::fromUrl(const QUrl &url)
{
    if (!isOnDomain(url, okMainHost))
        return std::nullopt;
    const auto segment = pathSegmentAfter(
        url, { QStringLiteral("video"), QStringLiteral("videoembed"), QStringLiteral("live") });
    const auto candidate = segment ? trimmedOrNothing(*segment) : std::nullopt;
    if (!candidate)
        return std::nullopt;
    const auto characters = candidate->toUcs4();
    if (!std::all_of(characters.begin(), characters.end(), isAllowedInID))
        return std::nullopt;
    return OKVideoContent { *candidate };
}

QUrl OKVideoContent::embedURL() const
{
    QUrl url;
    url.setScheme(QStringLiteral("https"));
    url.setHost(okMainHost);
    url.setPath(QStringLiteral("/videoembed/") + videoID);
    url.setQuery(QStringLiteral("autoplay=1&nochat=1"));
    return url;
}

} // namespace zeph
