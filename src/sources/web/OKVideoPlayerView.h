// The OK player.
#pragma once

#include "sources/web/WebPlayerView.h"

namespace zeph {

/// Plays an `OKVideoContent` in the service's own page. Main thread only.
class OKVideoPlayerView : public WebPlayerView {
    Q_OBJECT
    QML_ELEMENT

public:
    explicit OKVideoPlayerView(QQuickItem *parent = nullptr);

private:
    std::optional<QString> contentID(const QVariant &content) const override;
    void loadInto(WebBrowser &browser, const PageMessages &messages) override;
    void pageLoaded() override { stopWaiting(); }
};

} // namespace zeph
