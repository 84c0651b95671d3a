// From the bytes of a list to its entries.
#pragma once

#include "sources/PlaylistEntry.h"
#include "sources/PlaylistError.h"

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QUrl>

#include <functional>
#include <variant>

namespace zeph {

using PlaylistReading = std::variant<QList<PlaylistEntry>, PlaylistError>;

/// The entries of the list that `bytes` hold; at least one. Relative addresses are resolved against
/// `base`, the list's own. Any thread.
PlaylistReading readPlaylist(const QByteArray &bytes, const QUrl &base);

/// The same on another thread, for lists that would keep the window waiting. `done` is called on
/// the thread of `context`, later, unless `context` is gone by then.
void readPlaylistInBackground(const QByteArray &bytes, const QUrl &base, QObject *context,
    std::function<void(const PlaylistReading &)> done);

} // namespace zeph
