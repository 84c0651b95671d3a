// Entries as JSON: how saved links are stored.
#pragma once

#include "sources/PlaylistEntry.h"

#include <QJsonValue>
#include <QList>

namespace zeph {

/// One object, on one line, with the keys "id", "name" and "url", and "logoURL", "groupTitle" and
/// "countryCode" for what is there.
QByteArray playlistEntryToJson(const PlaylistEntry &entry);

/// Nothing when a required key is missing or any of the six has a value of the wrong type; null
/// counts as missing. Other keys are ignored.
std::optional<PlaylistEntry> playlistEntryFromJson(const QJsonValue &json);

/// One array.
QByteArray playlistToJson(const QList<PlaylistEntry> &entries);

/// Nothing when `json` is not an array or any of its elements is not an entry.
std::optional<QList<PlaylistEntry>> playlistFromJson(const QByteArray &json);

} // namespace zeph
