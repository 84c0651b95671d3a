// The item that holds a web page.
#pragma once

#include "sources/web/WebBrowser.h"

#include <QQmlEngine>
#include <QQuickItem>

namespace zeph {

/// Stands between a `WebBrowserObserver` and the web view that QML puts into it, for both services.
/// Main thread only.
class YouTubeHostingView : public QQuickItem, public WebBrowser {
    Q_OBJECT
    QML_ELEMENT
    Q_INTERFACES(zeph::WebBrowser)

    /// The profile for the web view.
    Q_PROPERTY(QObject *profile READ profile CONSTANT)

public:
    explicit YouTubeHostingView(QQuickItem *parent = nullptr);

    QObject *profile() const;

    void setObserver(WebBrowserObserver *observer) override { m_observer = observer; }
    void setUserScript(const QString &script) override { Q_EMIT userScriptWanted(script); }
    void loadHtml(const QString &html, const QUrl &baseUrl) override;
    void load(const QUrl &url, const QByteArray &referer) override;
    void stopLoading() override { Q_EMIT stopWanted(); }
    void evaluateJavaScript(const QString &script) override { Q_EMIT scriptWanted(script); }
    void leaveFullScreen() override { Q_EMIT leaveFullScreenWanted(); }

    /// Opens a link in the system's browser, if it is one to the web.
    Q_INVOKABLE void openOutside(const QUrl &link);

    // The web view reports:
    Q_INVOKABLE void pageLoaded();
    Q_INVOKABLE void pageFailed();
    Q_INVOKABLE void pageSaid(const QString &message);
    Q_INVOKABLE void rendererTerminated();
    Q_INVOKABLE void fullScreenRequested(bool fullScreen);

Q_SIGNALS:
    // What the web view is to do:
    void userScriptWanted(const QString &script);
    void htmlWanted(const QString &html, const QUrl &baseUrl);
    void urlWanted(const QUrl &url);
    void stopWanted();
    void scriptWanted(const QString &script);
    void leaveFullScreenWanted();

protected:
    bool childMouseEventFilter(QQuickItem *item, QEvent *event) override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;

private:
    WebBrowserObserver *m_observer = nullptr;
};

} // namespace zeph
