// The way of the commands to a page that may not be ready for them yet.
#pragma once

#include "sources/WebPlayerRegistry.h"

namespace zeph {

class WebBrowser;

/// Runs commands while the page is ready; others go nowhere. Main thread only.
class WebPlayerPage final : public WebPage {
public:
    void evaluateJavaScript(const QString &script) override;

    /// From now on the page in `browser` takes commands.
    void open(WebBrowser &browser) { m_browser = &browser; }
    /// The page is gone, or another one is about to come.
    void close() { m_browser = nullptr; }

private:
    WebBrowser *m_browser = nullptr; ///< Null while the page is not ready.
};

} // namespace zeph
