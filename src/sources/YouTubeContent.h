// An address of the YouTube video service, recognised.
#pragma once

#include <QObject>
#include <QString>
#include <QUrl>

#include <optional>

namespace zeph {

/// A video, a playlist, or a video within a playlist. At least one of the two ids is present, and
/// neither is ever empty.
struct YouTubeContent {
    Q_GADGET
    Q_PROPERTY(QString id READ id)

public:
    std::optional<QString> videoID;
    std::optional<QString> playlistID;

    /// Nothing when `url` is not an address of the service, or names neither video nor playlist.
    static std::optional<YouTubeContent> fromUrl(const QUrl &url);

    /// Tells contents apart: that of a video differs with the playlist.
    QString id() const;

    bool operator==(const YouTubeContent &) const = default;
};

} // namespace zeph
