// Why a list could not be loaded.
#pragma once

#include <QString>

namespace zeph {

enum class PlaylistError {
    /// The bytes could not be turned into text; as Latin-1 takes any, this does not happen yet.
    invalidEncoding,
    /// The text has no address.
    empty,
};

/// What the user is told.
QString playlistErrorDescription(PlaylistError error);

} // namespace zeph
