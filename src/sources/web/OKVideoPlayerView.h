// The OK player.
#pragma once

#include "sources/OKVideoContent.h"
#include "sources/web/WebPlayerView.h"

namespace zeph {

/// Plays the content in the service's own page. Main thread only.
class OKVideoPlayerView : public WebPlayerView {
    Q_OBJECT
    QML_ELEMENT

    /// An `OKVideoContent`; anything else is ignored.
    Q_PROPERTY(QVariant content READ content WRITE setContent NOTIFY contentChanged)

public:
    explicit OKVideoPlayerView(QQuickItem *parent = nullptr);

    QVariant content() const { return QVariant::fromValue(m_content); }
    void setContent(const QVariant &content);

Q_SIGNALS:
    void contentChanged();

private:
    void load(WebBrowser &browser) override;
    void pageLoaded() override { stopWaiting(); }

    OKVideoContent m_content;
};

} // namespace zeph
