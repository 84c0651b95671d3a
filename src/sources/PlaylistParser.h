// Reads M3U and M3U8 lists of channels.
#pragma once

#include "sources/PlaylistEntry.h"
#include "sources/PlaylistText.h"

#include <QList>

namespace zeph {

class PlaylistParser {
public:
    /// The entries of a list, in the order of its address lines. Relative addresses are resolved
    /// against `base`, the address of the list. Any text can be parsed; one without addresses gives
    /// no entries. Any thread.
    static QList<PlaylistEntry> parse(const PlaylistText &text, const QUrl &base);
};

} // namespace zeph
