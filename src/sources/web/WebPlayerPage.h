// The way of the commands to a page that may not be ready for them yet.
#pragma once

#include "sources/WebPlayerRegistry.h"

#include <QStringList>

namespace zeph {

class WebBrowser;

/// Keeps the commands that come before the page is ready, and runs them in their order once it is.
/// Main thread only.
class WebPlayerPage final : public WebPage {
public:
    void evaluateJavaScript(const QString &script) override;

    /// From now on the page in `browser` takes commands.
    void open(WebBrowser &browser);
    /// The page is gone; from now on commands wait for the next.
    void close();
    /// Forgets the commands that wait.
    void dropCommands();

private:
    WebBrowser *m_browser = nullptr; ///< Null while the page is not ready.
    QStringList m_waiting;
};

} // namespace zeph
