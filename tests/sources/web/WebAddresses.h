// What the stand-ins of the video services serve, and how to open it.
#pragma once

#include <QString>

inline const QString video = QStringLiteral("https://www.youtube.com/watch?v=abc");
inline const QString otherVideo = QStringLiteral("https://www.youtube.com/watch?v=def");
inline const QString playlist = QStringLiteral("https://www.youtube.com/playlist?list=PLx");
inline const QString videoInPlaylist =
    QStringLiteral("https://www.youtube.com/watch?v=abc&list=PLx");
inline const QString okVideo = QStringLiteral("https://ok.ru/video/123");

// The paths of what the players load for them.
inline const QString playerScript = QStringLiteral("/iframe_api");
inline const QString videoPage = QStringLiteral("/embed/abc");
inline const QString otherVideoPage = QStringLiteral("/embed/def");
inline const QString playlistPage = QStringLiteral("/embed/videoseries");
inline const QString okPage = QStringLiteral("/videoembed/123");
