#include "sources/web/YouTubePlayerView.h"

#include "sources/ServiceHosts.h"
#include "sources/web/YouTubePage.h"

using namespace std::chrono_literals;

namespace zeph {

YouTubePlayerView::YouTubePlayerView(QQuickItem *parent)
    : WebPlayerView(YouTubePlayerRegistry::shared(), 20s, parent)
{
}

void YouTubePlayerView::setContent(const QVariant &content)
{
    // Nothing is there for a moment when something else is about to be shown.
    if (!content.canConvert<YouTubeContent>())
        return;
    m_content = content.value<YouTubeContent>();
    update(m_content.id());
    Q_EMIT contentChanged();
}

void YouTubePlayerView::load(WebBrowser &browser)
{
    browser.loadHtml(youTubePage(m_content), QUrl(webOrigin + QLatin1Char('/')));
}

} // namespace zeph
