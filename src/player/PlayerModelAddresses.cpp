// What becomes of an address that the user typed or pasted.
#include "player/PlayerModel.h"

#include "platform/WebScheme.h"
#include "player/DefaultTitle.h"
#include "sources/UrlPath.h"

#include <QUrlQuery>

#include <algorithm>

namespace zeph {

namespace {

constexpr double webPlayerAspectRatio = 16.0 / 9;

// Nothing when `text` is no address, or not one of the web.
std::optional<QUrl> webAddress(const QString &text)
{
    const auto address = AddressText::fromText(text);
    if (!address)
        return std::nullopt;
    const QUrl url = address->toUrl();
    if (!hasWebScheme(url))
        return std::nullopt;
    return url;
}

bool namesPlaylist(const QString &queryPair)
{
    return queryPair.contains(QLatin1String("type=m3u"))
        || queryPair.contains(QLatin1String("format=m3u"))
        || queryPair.contains(QLatin1String("output=m3u"));
}

bool hasExtension(const QUrl &url, QLatin1StringView extension)
{
    return pathExtension(url).compare(extension, Qt::CaseInsensitive) == 0;
}

} // namespace

QString PlayerModel::normalizedRemoteAddress(const QString &text)
{
    QString address = trimmedText(text);
    const QLatin1StringView linkStart("](");
    if (const qsizetype link = address.indexOf(linkStart);
        link >= 0 && address.endsWith(QLatin1Char(')'))) {
        const qsizetype start = link + linkStart.size();
        address = address.sliced(start, address.size() - start - 1);
    }
    if (address.size() > 2 && address.startsWith(QLatin1Char('<'))
        && address.endsWith(QLatin1Char('>')))
        address = address.sliced(1, address.size() - 2);
    return trimmedText(address);
}

bool PlayerModel::isWebAddress(const QString &address)
{
    return webAddress(address).has_value();
}

bool PlayerModel::isIPTVPlaylistURL(const QUrl &url)
{
    if (hasExtension(url, QLatin1StringView("m3u")))
        return true;
    const auto items = QUrlQuery(url).queryItems(QUrl::FullyDecoded);
    return std::any_of(items.begin(), items.end(), [](const auto &item) {
        return namesPlaylist((item.first + QLatin1Char('=') + item.second).toLower());
    });
}

void PlayerModel::openRemote(const QString &address, const QString &displayName)
{
    m_remoteRequestID = QUuid::createUuid();
    const auto url = webAddress(normalizedRemoteAddress(address));
    if (!url) {
        publish(m_errorMessage, tr("Enter a valid HTTP or HTTPS address."),
            &PlayerModel::errorMessageChanged);
        publish(m_isLoading, false, &PlayerModel::isLoadingChanged);
        return;
    }
    publish(m_errorMessage, {}, &PlayerModel::errorMessageChanged);
    publish(m_playlist, {}, &PlayerModel::playlistChanged);
    const QString name = trimmedOrNothing(displayName).value_or(defaultTitle);

    if (const auto youtube = YouTubeContent::fromUrl(*url)) {
        beginWebLoad();
        show(*youtube, name);
    } else if (const auto okVideo = OKVideoContent::fromUrl(*url)) {
        beginWebLoad();
        show(*okVideo, name);
    } else if (isIPTVPlaylistURL(*url)) {
        leaveWebContent();
        loadM3U(*url, displayName, m_remoteRequestID);
    } else {
        publish(m_isLoading, false, &PlayerModel::isLoadingChanged);
        play(*url, name, hasExtension(*url, QLatin1StringView("m3u8")));
    }
}

void PlayerModel::beginWebLoad()
{
    publish(m_isLoading, false, &PlayerModel::isLoadingChanged);
    m_player.pause();
    m_player.replaceCurrentItem(nullptr);
    publish(m_mediaLoadID, QUuid::createUuid(), &PlayerModel::mediaLoadIDChanged);
    publish(m_videoAspectRatio, webPlayerAspectRatio, &PlayerModel::videoAspectRatioChanged);
    publish(m_videoAspectMediaLoadID, m_mediaLoadID, &PlayerModel::videoAspectMediaLoadIDChanged);
}

void PlayerModel::leaveWebContent()
{
    if (!m_youtubeContent && !m_okVideoContent)
        return;
    publish(m_youtubeContent, {}, &PlayerModel::youtubeContentChanged);
    publish(m_okVideoContent, {}, &PlayerModel::okVideoContentChanged);
    // The native item went when the page came: nothing plays any more.
    publish(m_isPlaying, false, &PlayerModel::isPlayingChanged);
}

} // namespace zeph
