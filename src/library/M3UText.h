// Entries as the text of an M3U list.
#pragma once

#include "sources/PlaylistEntry.h"

#include <QList>

namespace zeph {

/// In UTF-8, with a line end after the last line. Double quotes become single ones, and line breaks
/// blanks. What else PlaylistParser would read differently, such as a comma in a name, is written
/// as it is.
QByteArray m3uText(const QList<PlaylistEntry> &entries);

} // namespace zeph
