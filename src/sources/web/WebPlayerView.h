// What the views of the two services' web players share.
#pragma once

#include "platform/Delay.h"
#include "sources/web/PageFullScreen.h"
#include "sources/web/PageMessages.h"
#include "sources/web/WebBrowser.h"
#include "sources/web/WebPlayerPage.h"

#include <QPointer>
#include <QQmlEngine>
#include <QQuickItem>

#include <chrono>
#include <optional>

namespace zeph {

/// The place of a web player: registers as the one that is shown, has its page loaded when there is
/// new content, and tells when that does not work. The browser in it is made by QML, only once it
/// is wanted. Main thread only.
class WebPlayerView : public QQuickItem, private WebBrowserObserver {
    Q_OBJECT
    QML_ANONYMOUS

    /// What is played. What is not of the view's kind is ignored; undefined until there is any.
    Q_PROPERTY(QVariant content READ content WRITE setContent NOTIFY contentChanged)
    /// A browser is to be made and given to `browser`.
    Q_PROPERTY(bool wantsBrowser READ wantsBrowser NOTIFY wantsBrowserChanged)
    /// An item that is a `WebBrowser`. A child of this one.
    Q_PROPERTY(QQuickItem *browser READ browser WRITE setBrowser NOTIFY browserChanged)
    /// Why there is nothing to see, in a sentence; empty when all is well.
    Q_PROPERTY(QString failure READ failure NOTIFY failureChanged)
    /// It may go better another time.
    Q_PROPERTY(bool canRetry READ canRetry NOTIFY failureChanged)

public:
    ~WebPlayerView() override;

    const QVariant &content() const { return m_content; }
    void setContent(const QVariant &content);
    bool wantsBrowser() const { return m_wantsBrowser; }
    QQuickItem *browser() const { return m_browserItem; }
    void setBrowser(QQuickItem *item);
    const QString &failure() const { return m_failure; }
    bool canRetry() const { return m_canRetry; }

    /// How long to wait for a page before it is taken as failed.
    void setPatience(std::chrono::milliseconds patience) { m_patience = patience; }

    /// Loads the page anew.
    Q_INVOKABLE void retry();
    /// There is no browser to be had.
    Q_INVOKABLE void browserIsMissing();
    /// What is shown in place of the page was pressed.
    Q_INVOKABLE void messagePressed() { mousePressed(); }

Q_SIGNALS:
    void contentChanged();
    void wantsBrowserChanged();
    void browserChanged();
    void failureChanged();

protected:
    /// `registry` outlives the view.
    WebPlayerView(
        WebPlayerRegistry &registry, std::chrono::milliseconds patience, QQuickItem *parent);

    void pageLoaded() override;
    /// What was loaded is good: it is not waited for any longer.
    void stopWaiting() { m_waiting.cancel(); }

private:
    /// Tells contents apart; nothing when it is not of the view's kind.
    virtual std::optional<QString> contentID(const QVariant &content) const = 0;
    /// The page is to say `messages`.
    virtual void loadInto(WebBrowser &browser, const PageMessages &messages) = 0;

    void pageFailed() override;
    void pageSaid(const QString &message) override;
    void rendererTerminated() override;
    void mousePressed() override;
    void fullScreenRequested(bool fullScreen) override;

    void load();
    void waitForPage();
    void fail(const QString &failure, bool canRetry = true);
    void setFailure(const QString &failure);

    WebPlayerRegistry &m_registry;
    WebPlayerPage m_page;
    PageMessages m_messages; ///< Of the page that was loaded last.
    PageFullScreen m_fullScreen;
    QVariant m_content;
    QString m_loadedContentID;
    bool m_wantsBrowser = false;
    bool m_browserIsMissing = false;
    QPointer<QQuickItem> m_browserItem;
    WebBrowser *m_browser = nullptr; ///< Is `m_browserItem`.
    std::chrono::milliseconds m_patience;
    Delay m_waiting;
    Delay m_reload;
    bool m_mayReload = false;
    QString m_failure;
    bool m_canRetry = false;
};

} // namespace zeph
