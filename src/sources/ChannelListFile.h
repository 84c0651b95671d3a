// Files that name channels.
#pragma once

class QUrl;

namespace zeph {

/// Whether `file` is a local one that lists channels. Its name says so, unless it ends in "m3u8":
/// such a file may also name the parts of a single stream, and is looked into.
bool isChannelListFile(const QUrl &file);

} // namespace zeph
