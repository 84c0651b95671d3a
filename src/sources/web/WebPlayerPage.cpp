#include "sources/web/WebPlayerPage.h"

#include "sources/web/WebBrowser.h"

namespace zeph {

void WebPlayerPage::evaluateJavaScript(const QString &script)
{
    if (m_browser)
        m_browser->evaluateJavaScript(script);
}

} // namespace zeph
