#include "sources/browser/BrowserProfile.h"

namespace zeph {

namespace {

// Read by the browser when it starts, which is when its first profile is made.
constexpr auto flagsVariable = "QTWEBENGINE_CHROMIUM_FLAGS";

// The desktop's media keys are not for a page behind the player's back.
void keepMediaKeysFromPages()
{
    // Of several lists of features the browser reads the last.
    const QByteArray list = "--disable-features=";
    QByteArray flags = qgetenv(flagsVariable);
    const QByteArray ours = list + "HardwareMediaKeyHandling";
    if (const qsizetype theirs = flags.lastIndexOf(list); theirs >= 0)
        flags.replace(theirs, list.size(), ours + ',');
    else
        flags += ' ' + ours;
    qputenv(flagsVariable, flags);
}

} // namespace

BrowserProfile &BrowserProfile::shared()
{
    // Never destroyed: it has to outlive its pages, and the browser takes it down with itself.
    static auto *const profile = [] {
        keepMediaKeysFromPages();
        return new BrowserProfile;
    }();
    return *profile;
}

BrowserProfile::BrowserProfile()
{
    setOffTheRecord(true);
    setHttpCacheType(MemoryHttpCache);
    setPersistentCookiesPolicy(NoPersistentCookies);
    setSpellCheckEnabled(false);
    setUrlRequestInterceptor(&m_interceptor);
    // Downloads that nobody accepts are cancelled.
}

void BrowserProfile::setReferer(const QUrl &url, const QByteArray &referer)
{
    m_interceptor.url = url;
    m_interceptor.referer = referer;
}

void BrowserProfile::Interceptor::interceptRequest(QWebEngineUrlRequestInfo &request)
{
    const bool isPage = request.resourceType() == QWebEngineUrlRequestInfo::ResourceTypeMainFrame;
    if (isPage && !referer.isEmpty() && request.requestUrl() == url)
        request.setHttpHeader("Referer", referer);
}

} // namespace zeph
