// The YouTube player.
#pragma once

#include "sources/web/WebPlayerView.h"
#include "sources/YouTubeContent.h"

namespace zeph {

/// Plays the content in our page around the service's player. Main thread only.
class YouTubePlayerView : public WebPlayerView {
    Q_OBJECT
    QML_ELEMENT

    /// A `YouTubeContent`; anything else is ignored.
    Q_PROPERTY(QVariant content READ content WRITE setContent NOTIFY contentChanged)

public:
    explicit YouTubePlayerView(QQuickItem *parent = nullptr);

    QVariant content() const { return QVariant::fromValue(m_content); }
    void setContent(const QVariant &content);

Q_SIGNALS:
    void contentChanged();

private:
    void load(WebBrowser &browser) override;

    YouTubeContent m_content;
};

} // namespace zeph
