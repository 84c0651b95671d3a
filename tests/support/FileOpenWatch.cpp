#include "support/FileOpenWatch.h"

#include <QFile>

#include <sys/inotify.h>
#include <unistd.h>

namespace zeph {

FileOpenWatch::FileOpenWatch(const QString &path)
    : m_inotify(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
{
    if (::inotify_add_watch(m_inotify, QFile::encodeName(path).constData(), IN_OPEN) < 0)
        qFatal("%s cannot be watched", qPrintable(path));
}

FileOpenWatch::~FileOpenWatch()
{
    ::close(m_inotify);
}

bool FileOpenWatch::wasOpened()
{
    inotify_event event;
    m_opened |= ::read(m_inotify, &event, sizeof event) > 0;
    return m_opened;
}

} // namespace zeph
