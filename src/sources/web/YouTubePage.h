// Our page around the embedded YouTube player.
#pragma once

#include "sources/web/PageMessages.h"
#include "sources/YouTubeContent.h"

#include <QString>

namespace zeph {

/// An HTML document that loads the service's player and starts it with the content. To be loaded
/// with `webOrigin` as its origin, which the player requires. Its functions `zephToggle()`,
/// `zephSkip(seconds)`, `zephSetVolume(0…1)` and `zephSetMuted(boolean)` control the player; it
/// says `messages`.
QString youTubePage(const YouTubeContent &content, const PageMessages &messages);

} // namespace zeph
