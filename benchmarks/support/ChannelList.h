// Lists of channels like those that providers give out.
#pragma once

#include <QByteArray>

namespace zeph::bench {

/// The text of an M3U list of `count` channels, about 235 bytes each; always the same for the same
/// count. Names are in several scripts, groups and countries repeat.
QByteArray channelList(int count);

} // namespace zeph::bench
