#include "platform/UserDefaults.h"

#include "platform/AtomicFile.h"
#include "platform/SettingsText.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>

namespace zeph {

namespace {

// QSettings tells that it could not write, but not why.
std::optional<QString> lastWriteError;

bool readSettings(QIODevice &device, QSettings::SettingsMap &settings)
{
    settings = settingsFromText(device.readAll());
    return true;
}

bool writeSettings(QIODevice &device, const QSettings::SettingsMap &settings)
{
    auto *const file = qobject_cast<QFileDevice *>(&device);
    if (!file)
        return false;
    lastWriteError = writeToDisk(*file, settingsToText(settings));
    return !lastWriteError;
}

QSettings::Format format()
{
    static const QSettings::Format format = QSettings::registerFormat(
        QStringLiteral("conf"), readSettings, writeSettings, Qt::CaseSensitive);
    return format;
}

// Saved addresses contain passwords. QSettings would let everybody read a file that it makes, and
// newer versions do not tell when they cannot make it. Returns nothing, or why it failed.
std::optional<QString> createForUserOnly(const QString &path)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::NewOnly,
            QFileDevice::ReadOwner | QFileDevice::WriteOwner)
        || file.exists())
        return std::nullopt;
    return file.errorString();
}

// Why a file cannot be replaced, when QSettings did not get as far as to write it. On a disk
// without any room that is its lock.
QString obstacleTo(const QString &path)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    const auto error = writeToDisk(file, QByteArrayView("\n"));
    file.cancelWriting();
    return error.value_or(qt_error_string(EIO));
}

} // namespace

UserDefaults::UserDefaults()
    : UserDefaults(QSettings(format(), QSettings::UserScope, QCoreApplication::organizationName(),
        QCoreApplication::applicationName())
                       .fileName())
{
}

UserDefaults::UserDefaults(const QString &file) : m_file(file) { }

FolderLock UserDefaults::lock() const
{
    const QString folder = QFileInfo(m_file).absolutePath();
    QDir().mkpath(folder);
    return FolderLock(folder);
}

std::optional<QByteArray> UserDefaults::text(const QString &key) const
{
    if (!isFileOrNothing(m_file))
        return std::nullopt;
    const QVariant value = QSettings(m_file, format()).value(key);
    if (value.typeId() != QMetaType::QByteArray)
        return std::nullopt;
    return value.toByteArray();
}

std::optional<QString> UserDefaults::setText(
    const FolderLock &lock, const QString &key, const QByteArray &utf8)
{
    if (!isFileOrNothing(m_file))
        return QCoreApplication::translate("UserDefaults", "The settings file is not a file.");
    // QSettings has a lock of its own. Left behind by a process that was killed, it may hold up all
    // others for half a minute.
    if (lock.isHeld())
        QFile::remove(m_file + QStringLiteral(".lock"));
    if (auto error = createForUserOnly(m_file))
        return error;
    lastWriteError.reset();
    QSettings settings(m_file, format());
    settings.setValue(key, utf8);
    settings.sync();
    // One that failed says so ever after, and may have failed with an older text when it was made.
    // A new one fails if there still is something to be written.
    if (QSettings(m_file, format()).status() == QSettings::NoError)
        return std::nullopt;
    return lastWriteError ? lastWriteError : obstacleTo(m_file);
}

} // namespace zeph
