#include "sources/web/WebPlayerView.h"

#include "platform/BrowserSandbox.h"
#include "platform/PlayerNotifications.h"
#include "platform/PlayerSurfaceRegistry.h"

#include <QQuickWindow>

#include <utility>

namespace zeph {

WebPlayerView::WebPlayerView(
    WebPlayerRegistry &registry, std::chrono::milliseconds patience, QQuickItem *parent)
    : QQuickItem(parent)
    , m_registry(registry)
    , m_fullScreen([this] {
        if (m_browserItem)
            m_browser->leaveFullScreen();
    })
    , m_patience(patience)
{
}

WebPlayerView::~WebPlayerView()
{
    if (m_browserItem) {
        m_browser->setObserver(nullptr);
        m_browser->stopLoading();
    }
    if (m_registry.webView() == &m_page)
        m_registry.setWebView(nullptr);
    PlayerSurfaceRegistry &surface = PlayerSurfaceRegistry::shared();
    if (surface.view() == this)
        surface.setView(nullptr);
}

void WebPlayerView::setContent(const QVariant &content)
{
    const std::optional<QString> id = contentID(content);
    // Nothing is there for a moment when something else is about to be shown.
    if (!id)
        return;
    m_content = content;
    m_registry.setWebView(&m_page);
    PlayerSurfaceRegistry::shared().setView(this);
    if (*id != m_loadedContentID) {
        m_loadedContentID = *id;
        retry();
    }
    Q_EMIT contentChanged();
}

void WebPlayerView::setBrowser(QQuickItem *item)
{
    m_browser = qobject_cast<WebBrowser *>(item);
    m_browserItem = m_browser ? item : nullptr;
    Q_EMIT browserChanged();
    if (!m_browser)
        return;
    m_browser->setObserver(this);
    load();
}

void WebPlayerView::retry()
{
    m_mayReload = true;
    load();
}

void WebPlayerView::load()
{
    m_reload.cancel();
    m_page.close();
    setFailure({});
    if (m_browserItem) {
        waitForPage();
        m_messages = PageMessages();
        loadInto(*m_browser, m_messages);
        return;
    }
    if (m_browserIsMissing) {
        browserIsMissing();
        return;
    }
    switch (browserSandbox()) {
    case BrowserSandbox::Available:
        if (!std::exchange(m_wantsBrowser, true))
            Q_EMIT wantsBrowserChanged();
        break;
    case BrowserSandbox::RefusedToRoot:
        fail(tr("Web videos do not play for the root user.\nStart the player as another user."),
            false);
        break;
    case BrowserSandbox::Missing:
        fail(
            tr("Web videos do not play: this system lets no user make a sandbox for them."), false);
        break;
    }
}

void WebPlayerView::browserIsMissing()
{
    m_browserIsMissing = true;
    fail(tr("Web videos do not play: the player's web browser is not installed."), false);
}

void WebPlayerView::waitForPage()
{
    m_waiting.start(m_patience, [this] { fail(tr("The video service does not answer.")); });
}

void WebPlayerView::pageLoaded() { }

void WebPlayerView::pageFailed()
{
    fail(tr("The video page could not be loaded."));
}

void WebPlayerView::pageSaid(const QString &message)
{
    if (message == m_messages.scriptRuns) {
        waitForPage();
    } else if (message == m_messages.scriptFailed) {
        pageFailed();
    } else if (message == m_messages.ready) {
        stopWaiting();
        setFailure({});
        m_page.open(*m_browser);
        Q_EMIT m_registry.pageReady();
    }
}

void WebPlayerView::rendererTerminated()
{
    m_page.close();
    stopWaiting();
    if (std::exchange(m_mayReload, false))
        m_reload.start({}, [this] { load(); }); // Not while the browser still takes it in.
    else
        fail(tr("The video page has crashed."));
}

void WebPlayerView::mousePressed()
{
    NotificationCenter::defaultCenter().post(playerSurfaceClicked, window());
}

void WebPlayerView::fullScreenRequested(bool fullScreen)
{
    if (!fullScreen)
        m_fullScreen.leave();
    else if (window())
        m_fullScreen.enter(*window());
}

void WebPlayerView::fail(const QString &failure, bool canRetry)
{
    stopWaiting();
    m_page.close();
    m_canRetry = canRetry;
    setFailure(failure);
}

void WebPlayerView::setFailure(const QString &failure)
{
    if (failure == m_failure)
        return;
    m_failure = failure;
    Q_EMIT failureChanged();
}

} // namespace zeph
