#include "sources/PlaylistReader.h"

#include "sources/PlaylistParser.h"

#include <QFutureWatcher>
#include <QtConcurrent>

#include <utility>

namespace zeph {

PlaylistReading readPlaylist(const QByteArray &bytes, const QUrl &base)
{
    auto entries = PlaylistParser::parse(PlaylistText::fromBytes(bytes), base);
    if (entries.isEmpty())
        return PlaylistError::empty;
    return entries;
}

void readPlaylistInBackground(const QByteArray &bytes, const QUrl &base, QObject *context,
    std::function<void(const PlaylistReading &)> done)
{
    auto *watcher = new QFutureWatcher<PlaylistReading>(context);
    QObject::connect(
        watcher, &QFutureWatcherBase::finished, context, [watcher, done = std::move(done)] {
            watcher->deleteLater();
            done(watcher->future().takeResult());
        });
    watcher->setFuture(QtConcurrent::run(readPlaylist, bytes, base));
}

} // namespace zeph
