// A web player's view with a browser that records what it is asked for.
#pragma once

#include "sources/OKVideoContent.h"
#include "sources/web/OKVideoPlayerView.h"
#include "sources/web/PageMessages.h"
#include "sources/web/YouTubePlayerView.h"
#include "sources/YouTubeContent.h"

#include <QQuickItem>
#include <QRegularExpression>

#include <chrono>

class StandInBrowser : public QQuickItem, public zeph::WebBrowser {
    Q_OBJECT
    Q_INTERFACES(zeph::WebBrowser)

public:
    using QQuickItem::QQuickItem;

    void setObserver(zeph::WebBrowserObserver *newObserver) override { observer = newObserver; }
    void setUserScript(const QString &script) override { userScript = script; }
    void loadHtml(const QString &html, const QUrl &baseUrl) override
    {
        pages += html;
        addresses += baseUrl;
    }
    void load(const QUrl &url, const QByteArray &referer) override
    {
        addresses += url;
        referers += referer;
    }
    void stopLoading() override { ++stops; }
    void evaluateJavaScript(const QString &script) override { scripts += script; }
    void leaveFullScreen() override { ++leavesOfFullScreen; }

    /// What the page that was loaded last would say.
    zeph::PageMessages messages() const
    {
        static const QRegularExpression ready(QStringLiteral("zeph:ready ([0-9a-f]{32})"));
        const QString page = pages.isEmpty() ? userScript : pages.constLast();
        return zeph::PageMessages(ready.match(page).captured(1));
    }
    /// That page's player is there.
    void sayReady() { observer->pageSaid(messages().ready); }

    zeph::WebBrowserObserver *observer = nullptr;
    QString userScript;
    QStringList pages;
    QList<QUrl> addresses;
    QList<QByteArray> referers;
    QStringList scripts;
    int stops = 0;
    int leavesOfFullScreen = 0;
};

/// A view that has got its content and then its browser, which it owns as QML would have it.
template <typename View, typename Content> struct LoadedView {
    explicit LoadedView(const Content &content, QQuickItem *parent = nullptr) : view(parent)
    {
        load(content);
    }
    LoadedView(const Content &content, std::chrono::milliseconds viewPatience)
    {
        view.setPatience(viewPatience);
        load(content);
    }

    View view;
    StandInBrowser *browser = new StandInBrowser(&view);

private:
    void load(const Content &content)
    {
        view.setContent(QVariant::fromValue(content));
        view.setBrowser(browser);
    }
};

using LoadedYouTubeView = LoadedView<zeph::YouTubePlayerView, zeph::YouTubeContent>;
using LoadedOKView = LoadedView<zeph::OKVideoPlayerView, zeph::OKVideoContent>;
