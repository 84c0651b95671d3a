// Proof that a file was not opened.
#pragma once

#include <QString>

namespace zeph {

/// Notices when any process opens a file, from its construction on.
class FileOpenWatch {
public:
    explicit FileOpenWatch(const QString &path);
    ~FileOpenWatch();
    FileOpenWatch(const FileOpenWatch &) = delete;
    FileOpenWatch &operator=(const FileOpenWatch &) = delete;

    bool wasOpened();

private:
    int m_inotify;
    bool m_opened = false;
};

} // namespace zeph
