// Folders that take no files.
#pragma once

#include <QFile>

#include <sys/types.h>

/// While it lives, this thread may look into a folder but not change what is in it. Root, who may
/// do so anywhere, gives up that right for the time. The folders above it are open to everybody.
class ReadOnlyFolder {
public:
    explicit ReadOnlyFolder(const QString &path);
    ~ReadOnlyFolder();
    ReadOnlyFolder(const ReadOnlyFolder &) = delete;
    ReadOnlyFolder &operator=(const ReadOnlyFolder &) = delete;

private:
    const QString m_path;
    const QFile::Permissions m_permissionsBefore;
    uid_t m_userBefore;
};

/// From now on, programs that this one starts obey the permissions of files also when it is root
/// who runs them.
void obeyPermissionsInPrograms();
