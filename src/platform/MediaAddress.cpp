#include "platform/MediaAddress.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>

namespace zeph {

namespace {

constexpr std::array networkSchemes {
    QLatin1StringView("http"), QLatin1StringView("https"), QLatin1StringView("rtsp"),
    QLatin1StringView("rtmp"), QLatin1StringView("rtp"), QLatin1StringView("udp"),
    QLatin1StringView("srt"),
};

} // namespace

std::optional<QByteArray> engineAddress(const QUrl &url)
{
    if (!url.isValid())
        return std::nullopt;
    if (url.isLocalFile()) {
        // The engine takes a relative path for one below its working folder, and may read one that
        // begins with a scheme as an address; an absolute path is neither.
        const QString path = url.toLocalFile();
        if (!path.startsWith(QLatin1Char('/')) || path.contains(QChar::Null))
            return std::nullopt;
        // The engine plays a folder as a list of all that is in it.
        if (QFileInfo(path).isDir())
            return std::nullopt;
        return QFile::encodeName(path);
    }
    if (std::find(networkSchemes.begin(), networkSchemes.end(), url.scheme()) == networkSchemes.end())
        return std::nullopt;
    if (url.host().isEmpty())
        return std::nullopt;
    return url.toEncoded(QUrl::FullyEncoded);
}

} // namespace zeph
