#include "sources/web/OKVideoPlayerView.h"

#include "sources/OKVideoContent.h"
#include "sources/ServiceHosts.h"

using namespace std::chrono_literals;

namespace zeph {

namespace {

// The page's own scripts make its video element, sooner or later.
QString sayWhenThereIsAVideo(const QString &message)
{
    return QStringLiteral(R"((function () {
    function look() {
        if (!document.querySelector('video'))
            return false;
        console.info('%1');
        return true;
    }
    if (look())
        return;
    new MutationObserver(function (changes, observer) {
        if (look())
            observer.disconnect();
    }).observe(document, { childList: true, subtree: true });
})();)")
        .arg(message);
}

} // namespace

OKVideoPlayerView::OKVideoPlayerView(QQuickItem *parent)
    : WebPlayerView(OKVideoPlayerRegistry::shared(), 60s, parent)
{
}

std::optional<QString> OKVideoPlayerView::contentID(const QVariant &content) const
{
    if (!content.canConvert<OKVideoContent>())
        return std::nullopt;
    return content.value<OKVideoContent>().id();
}

void OKVideoPlayerView::loadInto(WebBrowser &browser, const PageMessages &messages)
{
    browser.setUserScript(sayWhenThereIsAVideo(messages.ready));
    browser.load(content().value<OKVideoContent>().embedURL(),
        "https://" + QByteArray(okMainHost.data()) + '/');
}

} // namespace zeph
