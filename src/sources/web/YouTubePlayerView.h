// The YouTube player.
#pragma once

#include "sources/web/WebPlayerView.h"

namespace zeph {

/// Plays a `YouTubeContent` in our page around the service's player. Main thread only.
class YouTubePlayerView : public WebPlayerView {
    Q_OBJECT
    QML_ELEMENT

public:
    explicit YouTubePlayerView(QQuickItem *parent = nullptr);

private:
    std::optional<QString> contentID(const QVariant &content) const override;
    void loadInto(WebBrowser &browser, const PageMessages &messages) override;
};

} // namespace zeph
