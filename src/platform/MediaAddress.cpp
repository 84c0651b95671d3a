#include "platform/MediaAddress.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>

namespace zeph {

namespace {

constexpr std::array networkSchemes {
    QLatin1StringView("http"),
    QLatin1StringView("https"),
    QLatin1StringView("rtsp"),
    QLatin1StringView("rtmp"),
    QLatin1StringView("rtp"),
    QLatin1StringView("udp"),
    QLatin1StringView("srt"),
};

} // namespace

std::optional<QByteArray> engineAddress(const QUrl &url)
{
    if (!url.isValid())
        return std::nullopt;
    if (url.isLocalFile()) {
        // With a host it is a file of another machine, which we would look for on this one.
        if (!url.host().isEmpty() && url.host() != QLatin1String("localhost"))
            return std::nullopt;
        // The engine takes a relative path for one below its working folder, and may read one that
        // begins with a scheme as an address; an absolute path is neither.
        const QString path = url.path(QUrl::FullyDecoded);
        if (!path.startsWith(QLatin1Char('/')) || path.contains(QChar::Null))
            return std::nullopt;
        // The engine would play all that is in a folder, having searched it to the bottom first.
        if (QFileInfo(path).isDir())
            return std::nullopt;
        return QFile::encodeName(path);
    }
    if (std::find(networkSchemes.begin(), networkSchemes.end(), url.scheme())
        == networkSchemes.end())
        return std::nullopt;
    if (url.host().isEmpty())
        return std::nullopt;
    // A fragment is not for the web server. With srt the engine takes it for a part of the query.
    const bool web = url.scheme().startsWith(QLatin1String("http"));
    return url.toEncoded(web ? QUrl::FullyEncoded | QUrl::RemoveFragment : QUrl::FullyEncoded);
}

} // namespace zeph
