#include "sources/web/OKVideoPlayerView.h"

#include "sources/ServiceHosts.h"
#include "sources/web/PageMessages.h"

using namespace std::chrono_literals;

namespace zeph {

namespace {

// The page's own scripts make its video element, sooner or later.
QString sayWhenThereIsAVideo()
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
        .arg(pageMessages::ready);
}

} // namespace

OKVideoPlayerView::OKVideoPlayerView(QQuickItem *parent)
    : WebPlayerView(OKVideoPlayerRegistry::shared(), 60s, parent)
{
}

void OKVideoPlayerView::setContent(const QVariant &content)
{
    // Nothing is there for a moment when something else is about to be shown.
    if (!content.canConvert<OKVideoContent>())
        return;
    m_content = content.value<OKVideoContent>();
    update(m_content.id());
    Q_EMIT contentChanged();
}

void OKVideoPlayerView::load(WebBrowser &browser)
{
    browser.setUserScript(sayWhenThereIsAVideo());
    browser.load(m_content.embedURL(), "https://" + QByteArray(okMainHost.data()) + '/');
}

} // namespace zeph
