// Disks without room.
#pragma once

#include <QString>
#include <QTemporaryDir>

#include <sys/resource.h>

/// While it lives, this process cannot make a file longer than this. Writing fails in the middle,
/// as it does on a disk that runs full. Needs no rights.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes);
    ~FileSizeLimit();
    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;

private:
    rlimit m_before {};
};

/// A file system of this process's own with room for a few files. To be made while there is but one
/// thread, because a process without rights has to enter a user namespace for it.
class SmallDisk {
public:
    explicit SmallDisk(qsizetype bytes);
    ~SmallDisk();
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;

    /// Not on a machine that does not allow it at all.
    bool isMounted() const { return m_isMounted; }
    QString folder() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
    bool m_isMounted = false;
};
