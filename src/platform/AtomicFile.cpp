#include "platform/AtomicFile.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <unistd.h>

namespace zeph {

bool isFileOrNothing(const QString &path)
{
    const QFileInfo info(path);
    return info.isFile() || !info.exists();
}

std::optional<QString> replaceFile(const QString &path, QByteArrayView bytes)
{
    if (!isFileOrNothing(path))
        return QCoreApplication::translate("AtomicFile", "It is not a file.");
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    if (auto error = writeToDisk(file, bytes))
        return error;
    if (!file.commit())
        return file.errorString();
    return std::nullopt;
}

std::optional<QString> writeToDisk(QFileDevice &file, QByteArrayView bytes)
{
    // A disk that runs full takes a part at first. Only the next write fails, and tells why.
    while (!bytes.isEmpty()) {
        const qint64 written = file.write(bytes.data(), bytes.size());
        if (written <= 0)
            return file.errorString();
        bytes = bytes.sliced(written);
    }
    if (!file.flush())
        return file.errorString();
    // QSaveFile does this on its own, but takes no notice of the outcome. Some file systems report
    // only here that there was no room, others do not know how to do it.
    if (::fsync(file.handle()) != 0 && errno != EINVAL && errno != ENOTSUP)
        return qt_error_string(errno);
    return std::nullopt;
}

} // namespace zeph
