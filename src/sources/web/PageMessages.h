// What our scripts in the pages write to the console for us.
#pragma once

#include <QLatin1String>

namespace zeph::pageMessages {

/// The service's player script runs.
inline constexpr QLatin1StringView scriptRuns { "zeph:script-runs" };
/// The service's player script cannot be had.
inline constexpr QLatin1StringView scriptFailed { "zeph:script-failed" };
/// The player is there, and takes commands.
inline constexpr QLatin1StringView ready { "zeph:ready" };

} // namespace zeph::pageMessages
