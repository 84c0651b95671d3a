// The public domains of the two video services.
#pragma once

#include <QLatin1String>

namespace zeph {

inline constexpr QLatin1StringView youTubeMainHost { "youtube.com" };
/// Its first path segment is a video id.
inline constexpr QLatin1StringView youTubeShortHost { "youtu.be" };
/// Serves embedded players only.
inline constexpr QLatin1StringView youTubeNoCookieHost { "youtube-nocookie.com" };
/// Also serves its own embed page.
inline constexpr QLatin1StringView okMainHost { "ok.ru" };

} // namespace zeph
