// Pictures out of bytes that nobody vouches for.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>

#include <optional>

namespace zeph {

/// Bytes of a picture's file beyond which it is none of ours.
inline constexpr qint64 imageFileSizeLimit = qint64 { 8 } << 20;
/// Pixels along each side of a picture beyond which it is not decoded.
inline constexpr int imageSideLimit = 4096;

/// The picture in `bytes`, in its own proportions, scaled down to lie within `bounds` (pixels).
/// Null when they are not those of a PNG, JPEG, GIF, WebP, BMP or ICO picture, whatever they are
/// said to be, or of one that is too large. Of an animation, the first picture. Any thread.
QImage decodeImage(const QByteArray &bytes, QSize bounds);

/// The content of a file of at most `imageFileSizeLimit` bytes; nothing when there is no such file,
/// or when what is there is a folder, a pipe or a device. Any thread.
std::optional<QByteArray> readImageFile(const QString &path);

} // namespace zeph
