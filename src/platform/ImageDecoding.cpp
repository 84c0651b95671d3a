#include "platform/ImageDecoding.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>

#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zeph {

namespace {

/// Told by the content, so that no other reader gets to see it: some of them follow references.
QByteArray imageFormat(QByteArrayView bytes)
{
    if (bytes.startsWith("\x89PNG\r\n\x1a\n"))
        return "png";
    if (bytes.startsWith("\xff\xd8\xff"))
        return "jpeg";
    if (bytes.startsWith("GIF87a") || bytes.startsWith("GIF89a"))
        return "gif";
    if (bytes.startsWith("RIFF") && bytes.size() > 12 && bytes.sliced(8).startsWith("WEBP"))
        return "webp";
    if (bytes.startsWith("BM"))
        return "bmp";
    if (bytes.startsWith(QByteArrayView("\0\0\1\0", 4)))
        return "ico";
    return {};
}

bool isSane(QSize size)
{
    return !size.isEmpty() && size.width() <= imageSideLimit && size.height() <= imageSideLimit;
}

QSize fitted(QSize size, QSize bounds)
{
    if (size.width() <= bounds.width() && size.height() <= bounds.height())
        return size;
    return size.scaled(bounds, Qt::KeepAspectRatio).expandedTo({ 1, 1 });
}

} // namespace

QImage decodeImage(const QByteArray &bytes, QSize bounds)
{
    const QByteArray format = imageFormat(bytes);
    if (format.isEmpty() || bytes.size() > imageFileSizeLimit)
        return {};
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (!isSane(size))
        return {};
    // A photograph is far quicker decoded at a part of its size. Twice the size that is needed
    // leaves enough for smooth edges, whichever way it is turned.
    const int side = 2 * std::max(bounds.width(), bounds.height());
    if (format == "jpeg")
        reader.setScaledSize(fitted(size, { side, side }));
    const QImage image = reader.read();
    if (!isSane(image.size()))
        return {};
    return image
        .scaled(fitted(image.size(), bounds), Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

std::optional<QByteArray> readImageFile(const QString &path)
{
    if (path.contains(QChar::Null) || !QFileInfo(path).isFile())
        return std::nullopt;
    // Should a pipe have taken its place, opening it shall return even if nobody writes to it.
    const int descriptor =
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0)
        return std::nullopt;
    struct stat status { };
    const bool isSaneFile = ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)
        && status.st_size <= imageFileSizeLimit;
    QFile file;
    if (!isSaneFile || !file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
        ::close(descriptor);
        return std::nullopt;
    }
    // It may grow meanwhile, or be one that states no size.
    QByteArray bytes = file.read(imageFileSizeLimit + 1);
    if (bytes.size() > imageFileSizeLimit)
        return std::nullopt;
    return bytes;
}

} // namespace zeph
