#include "sources/browser/YouTubeHostingView.h"

#include "platform/WebScheme.h"
#include "sources/browser/BrowserProfile.h"

#include <QDesktopServices>
#include <QMouseEvent>

namespace zeph {

YouTubeHostingView::YouTubeHostingView(QQuickItem *parent) : QQuickItem(parent)
{
    // Before the web view starts the browser in a way of its own.
    BrowserProfile::shared();
    setFiltersChildMouseEvents(true);
}

QObject *YouTubeHostingView::profile() const
{
    return &BrowserProfile::shared();
}

void YouTubeHostingView::loadHtml(const QString &html, const QUrl &baseUrl)
{
    Q_EMIT htmlWanted(html, baseUrl);
}

void YouTubeHostingView::load(const QUrl &url, const QByteArray &referer)
{
    BrowserProfile::shared().setReferer(url, referer);
    Q_EMIT urlWanted(url);
}

void YouTubeHostingView::openOutside(const QUrl &link)
{
    if (hasWebScheme(link))
        QDesktopServices::openUrl(link);
}

void YouTubeHostingView::pageLoaded()
{
    if (m_observer)
        m_observer->pageLoaded();
}

void YouTubeHostingView::pageFailed()
{
    if (m_observer)
        m_observer->pageFailed();
}

void YouTubeHostingView::pageSaid(const QString &message)
{
    if (m_observer)
        m_observer->pageSaid(message);
}

void YouTubeHostingView::rendererTerminated()
{
    if (m_observer)
        m_observer->rendererTerminated();
}

void YouTubeHostingView::fullScreenRequested(bool fullScreen)
{
    if (m_observer)
        m_observer->fullScreenRequested(fullScreen);
}

bool YouTubeHostingView::childMouseEventFilter(QQuickItem *, QEvent *event)
{
    const bool pressed = event->type() == QEvent::MouseButtonPress
        && static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton;
    if (pressed && m_observer)
        m_observer->mousePressed();
    return false;
}

void YouTubeHostingView::itemChange(ItemChange change, const ItemChangeData &data)
{
    // What is dropped is for the window to open, not for the page.
    if (change == ItemChildAddedChange)
        data.item->setFlag(ItemAcceptsDrops, false);
    QQuickItem::itemChange(change, data);
}

} // namespace zeph
