#include "sources/web/YouTubePlayerView.h"

#include "sources/ServiceHosts.h"
#include "sources/web/YouTubePage.h"
#include "sources/YouTubeContent.h"

using namespace std::chrono_literals;

namespace zeph {

YouTubePlayerView::YouTubePlayerView(QQuickItem *parent)
    : WebPlayerView(YouTubePlayerRegistry::shared(), 20s, parent)
{
}

std::optional<QString> YouTubePlayerView::contentID(const QVariant &content) const
{
    if (!content.canConvert<YouTubeContent>())
        return std::nullopt;
    return content.value<YouTubeContent>().id();
}

void YouTubePlayerView::loadInto(WebBrowser &browser, const PageMessages &messages)
{
    browser.loadHtml(youTubePage(content().value<YouTubeContent>(), messages),
        QUrl(webOrigin + QLatin1Char('/')));
}

} // namespace zeph
