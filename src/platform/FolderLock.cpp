#include "platform/FolderLock.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QThread>

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace zeph {

using namespace std::chrono_literals;

FolderLock::FolderLock(const QString &folder)
    : m_folder(::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    if (m_folder < 0)
        return;
    const QDeadlineTimer patience(3s);
    while (!(m_isHeld = ::flock(m_folder, LOCK_EX | LOCK_NB) == 0)
        && (errno == EWOULDBLOCK || errno == EINTR) && !patience.hasExpired())
        QThread::usleep(500);
}

FolderLock::~FolderLock()
{
    if (m_folder >= 0)
        ::close(m_folder);
}

} // namespace zeph
