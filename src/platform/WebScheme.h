// Which addresses lead to the web.
#pragma once

#include <QUrl>

namespace zeph {

/// Whether it is one of HTTP or HTTPS.
inline bool hasWebScheme(const QUrl &url)
{
    return url.scheme() == QLatin1StringView("http") || url.scheme() == QLatin1StringView("https");
}

} // namespace zeph
