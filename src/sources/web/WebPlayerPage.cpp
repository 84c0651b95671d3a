#include "sources/web/WebPlayerPage.h"

#include "sources/web/WebBrowser.h"

#include <utility>

namespace zeph {

void WebPlayerPage::evaluateJavaScript(const QString &script)
{
    if (m_browser)
        m_browser->evaluateJavaScript(script);
    else
        m_waiting += script;
}

void WebPlayerPage::open(WebBrowser &browser)
{
    m_browser = &browser;
    for (const QString &script : std::exchange(m_waiting, {}))
        m_browser->evaluateJavaScript(script);
}

void WebPlayerPage::close()
{
    m_browser = nullptr;
}

void WebPlayerPage::dropCommands()
{
    m_waiting.clear();
}

} // namespace zeph
