// Which addresses may be handed to the playback engine, and in which form.
#pragma once

#include <QByteArray>
#include <QUrl>

#include <optional>

namespace zeph {

/// The text by which the engine is asked to open `url`: a local path for a file, otherwise the
/// encoded address. Nothing for an address that must not be played: the engine has schemes that
/// read memory, file descriptors or lists of other files, so only local files, no folders, and the
/// network schemes that channel lists use get through. Looks at the disk for a local address.
std::optional<QByteArray> engineAddress(const QUrl &url);

} // namespace zeph
