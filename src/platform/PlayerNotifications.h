// What the parts of the main window tell one another.
#pragma once

#include "platform/NotificationCenter.h"

#include <QWindow>

namespace zeph {

/// The picture, or the web page in its place, was clicked once. About its window, null if it is in
/// none.
inline constexpr Notification<QWindow> playerSurfaceClicked { QLatin1StringView(
    "ZephPlayer.playerSurfaceClicked") };

/// The mouse was moved over a window of ours.
inline constexpr Notification<QWindow> playerMouseMoved { QLatin1StringView(
    "ZephPlayer.playerMouseMoved") };

} // namespace zeph
