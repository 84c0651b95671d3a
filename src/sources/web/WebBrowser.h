// What a web browser is to the rest of the program. Nothing but interfaces, as the browser is a
// plugin that shares no code with the program.
#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QUrl>

namespace zeph {

/// Is told what happens in a browser. Main thread only.
class WebBrowserObserver {
public:
    /// The document and all that belongs to it are there.
    virtual void pageLoaded() = 0;
    /// The document did not come, or came with an error.
    virtual void pageFailed() = 0;
    /// A script in the page, or in a frame of it, wrote to the console.
    virtual void pageSaid(const QString &message) = 0;
    /// The process that ran the page is gone, and with it the page.
    virtual void rendererTerminated() = 0;
    /// The left mouse button was pressed; the page gets to know, too.
    virtual void mousePressed() = 0;
    /// The page wants to fill the screen, or no longer.
    virtual void fullScreenRequested(bool fullScreen) = 0;

protected:
    ~WebBrowserObserver() = default;
};

/// Shows one page at a time and runs scripts in it; a QQuickItem, too. Main thread only.
class WebBrowser {
public:
    /// One at most. Null when there is none any more.
    virtual void setObserver(WebBrowserObserver *observer) = 0;
    /// Runs in a world of its own, as soon as the document of each page loaded from now on is read.
    virtual void setUserScript(const QString &script) = 0;
    /// `baseUrl` becomes the page's address: its origin, and what is relative to it.
    virtual void loadHtml(const QString &html, const QUrl &baseUrl) = 0;
    /// `referer` is sent with the request.
    virtual void load(const QUrl &url, const QByteArray &referer) = 0;
    virtual void stopLoading() = 0;
    virtual void evaluateJavaScript(const QString &script) = 0;
    /// Tells the page that it does not fill the screen any more.
    virtual void leaveFullScreen() = 0;

protected:
    ~WebBrowser() = default;
};

} // namespace zeph

Q_DECLARE_INTERFACE(zeph::WebBrowser, "example.zephplayer.WebBrowser/1")
