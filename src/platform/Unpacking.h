// Makes one body of the pieces that a server sent.
#pragma once

#include <QByteArray>
#include <QList>

namespace zeph {

enum class UnpackingError {
    none,
    damaged,
    tooLarge,
};

struct Unpacked {
    QByteArray bytes; ///< Empty on an error.
    UnpackingError error = UnpackingError::none;
};

/// The pieces, one after the other. Any thread.
Unpacked join(QList<QByteArray> pieces);

/// Unpacks gzip, of one part or more, and zlib. Stops as soon as there is more than `limit` bytes
/// of it, so that something small that unpacks to something huge does no harm. Any thread.
Unpacked unpack(QList<QByteArray> pieces, qint64 limit);

} // namespace zeph
