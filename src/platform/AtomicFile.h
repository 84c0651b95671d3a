// Files that are replaced whole or not at all.
#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>

class QFileDevice;

namespace zeph {

/// Whether there is an ordinary file at `path`, or nothing yet. A device, a pipe or a folder must
/// not be replaced by a file, which with enough rights would succeed.
bool isFileOrNothing(const QString &path);

/// Makes `bytes` the content of the file at `path`. Returns nothing, or, as text for the user, why
/// that failed; then the file is as it was, or still not there. A process that ends in the middle
/// of it, by whatever means, leaves the old content or the new.
std::optional<QString> replaceFile(const QString &path, QByteArrayView bytes);

/// Writes `bytes` to an open file and waits until they are on the disk. Returns nothing, or, as
/// text for the user, why not all of them got there.
std::optional<QString> writeToDisk(QFileDevice &file, QByteArrayView bytes);

} // namespace zeph
