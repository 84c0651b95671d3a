// The line below a channel's name.
#pragma once

#include "sources/PlaylistEntry.h"

namespace zeph {

/// Of a channel in the list from the network: its country, "Other" when it has none, and its group.
QString channelMetadata(const PlaylistEntry &entry);

/// Of a saved link: its country and its group, as far as it has them.
QString playlistEntryMetadata(const PlaylistEntry &entry);

} // namespace zeph
