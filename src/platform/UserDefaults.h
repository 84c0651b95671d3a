// What the program remembers about its user.
#pragma once

#include "platform/FolderLock.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace zeph {

/// Texts under keys, in a file that only its user can read. Several processes may use it at a time.
/// Main thread only.
class UserDefaults {
public:
    /// In the user's folder for settings, by the names of the organization and the application.
    UserDefaults();
    explicit UserDefaults(const QString &file);

    /// Keeps other processes, and other objects of this class, from getting between a look and the
    /// change that depends on it.
    [[nodiscard]] FolderLock lock() const;

    /// The text under `key` as it is in the file by now, in UTF-8. Nothing when there is none, or
    /// when what is there cannot be read.
    std::optional<QByteArray> text(const QString &key) const;

    /// Stores valid UTF-8 under `key`, which consists of ASCII letters, digits, dots and hyphens,
    /// while the caller holds the `lock` of this object. Once this returns it is on the disk.
    /// Returns nothing, or, as text for the user, why that failed; the file is then as it was. A
    /// process that ends in the middle of it, by whatever means, leaves the old text or the new.
    std::optional<QString> setText(
        const FolderLock &lock, const QString &key, const QByteArray &utf8);

private:
    QString m_file;
};

} // namespace zeph
