// One playable item of a list.
#pragma once

#include <QString>
#include <QUrl>
#include <QUuid>

#include <optional>

namespace zeph {

/// A channel or video. Two entries are equal only when their ids are, too.
struct PlaylistEntry {
    QUuid id;
    QString name;
    QUrl url;
    std::optional<QUrl> logoURL;
    std::optional<QString> groupTitle;
    /// Two letters, upper case.
    std::optional<QString> countryCode;

    bool operator==(const PlaylistEntry &) const = default;
};

} // namespace zeph
