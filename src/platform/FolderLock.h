// One process at a time.
#pragma once

#include <QString>

namespace zeph {

/// Held by at most one owner among all processes of this machine. It is a lock on the folder
/// itself: nothing is left behind in it, and the end of a process, by whatever means, releases it.
class FolderLock {
public:
    /// Waits for the other owner, for a few seconds at most. Without the lock after that, or where
    /// the folder cannot be locked: whoever uses this has to get by without.
    explicit FolderLock(const QString &folder);
    ~FolderLock();
    FolderLock(const FolderLock &) = delete;
    FolderLock &operator=(const FolderLock &) = delete;

    bool isHeld() const { return m_isHeld; }

private:
    int m_folder;
    bool m_isHeld = false;
};

} // namespace zeph
