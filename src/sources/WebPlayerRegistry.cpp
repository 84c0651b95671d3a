#include "sources/WebPlayerRegistry.h"

namespace zeph {

namespace {

QString booleanLiteral(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

} // namespace

void WebPlayerRegistry::evaluate(const QString &script)
{
    QMetaObject::invokeMethod(
        this,
        [this, script] {
            if (m_webView)
                m_webView->evaluateJavaScript(script);
        },
        Qt::QueuedConnection);
}

void WebPlayerRegistry::setMuted(bool muted)
{
    evaluate(mutedScript(muted));
}

YouTubePlayerRegistry &YouTubePlayerRegistry::shared()
{
    static YouTubePlayerRegistry registry;
    return registry;
}

QString YouTubePlayerRegistry::mutedScript(bool muted) const
{
    return QStringLiteral("zephSetMuted(%1);").arg(booleanLiteral(muted));
}

OKVideoPlayerRegistry &OKVideoPlayerRegistry::shared()
{
    static OKVideoPlayerRegistry registry;
    return registry;
}

QString OKVideoPlayerRegistry::mutedScript(bool muted) const
{
    return QStringLiteral("var v=document.querySelector('video'); if(v){v.muted=%1;}")
        .arg(booleanLiteral(muted));
}

} // namespace zeph
