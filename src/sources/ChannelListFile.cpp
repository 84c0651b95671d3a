#include "sources/ChannelListFile.h"

#include "platform/AtomicFile.h"
#include "sources/UrlPath.h"

#include <QFile>
#include <QUrl>

namespace zeph {

namespace {

// A playlist of a stream's parts has the first of these tags, one of its variants the second.
bool isOfOneStream(const QString &path)
{
    constexpr qint64 beginningSize = 1 << 16;
    QFile file(path);
    if (!isFileOrNothing(path) || !file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray beginning = file.read(beginningSize);
    return beginning.contains("#EXT-X-TARGETDURATION") || beginning.contains("#EXT-X-STREAM-INF");
}

} // namespace

bool isChannelListFile(const QUrl &file)
{
    if (!file.isLocalFile())
        return false;
    const QString extension = pathExtension(file).toLower();
    return extension == QLatin1StringView("m3u")
        || (extension == QLatin1StringView("m3u8") && !isOfOneStream(file.toLocalFile()));
}

} // namespace zeph
