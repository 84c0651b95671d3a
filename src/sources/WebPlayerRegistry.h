// The way from the player model to the web pages that play for it.
#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

namespace zeph {

/// A live web page that runs scripts. Main thread only.
class WebPage : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Runs `script` some time soon; what comes of it is nobody's concern.
    virtual void evaluateJavaScript(const QString &script) = 0;
};

/// Knows the page of one service that is shown now, without keeping it alive. Commands are fire and
/// forget: they run later, never within the call, and go nowhere when no page is shown.
class WebPlayerRegistry : public QObject {
    Q_OBJECT

public:
    WebPage *webView() const { return m_webView; }
    void setWebView(WebPage *page) { m_webView = page; }

    /// Any thread.
    void evaluate(const QString &script);
    /// Any thread.
    void setMuted(bool muted);

Q_SIGNALS:
    /// The page that is shown has its player from now on, which knows nothing of earlier commands.
    void pageReady();

protected:
    WebPlayerRegistry() = default;

private:
    virtual QString mutedScript(bool muted) const = 0;

    QPointer<WebPage> m_webView;
};

class YouTubePlayerRegistry final : public WebPlayerRegistry {
public:
    static YouTubePlayerRegistry &shared();

private:
    QString mutedScript(bool muted) const override;
};

class OKVideoPlayerRegistry final : public WebPlayerRegistry {
public:
    static OKVideoPlayerRegistry &shared();

private:
    QString mutedScript(bool muted) const override;
};

} // namespace zeph
