#include "support/FullDisk.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <csignal>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

namespace {

bool writeTo(const char *path, const QByteArray &text)
{
    QFile file(QString::fromLatin1(path));
    return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)
        && file.write(text) == text.size();
}

bool enterMountNamespace()
{
    const QByteArray user = QByteArray::number(::getuid());
    const QByteArray group = QByteArray::number(::getgid());
    if (::unshare(CLONE_NEWNS) == 0)
        return true;
    return ::unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 && writeTo("/proc/self/setgroups", "deny")
        && writeTo("/proc/self/uid_map", user + ' ' + user + " 1")
        && writeTo("/proc/self/gid_map", group + ' ' + group + " 1");
}

} // namespace

FileSizeLimit::FileSizeLimit(rlim_t bytes)
{
    std::signal(SIGXFSZ, SIG_IGN);
    ::getrlimit(RLIMIT_FSIZE, &m_before);
    rlimit limit = m_before;
    limit.rlim_cur = bytes;
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

FileSizeLimit::~FileSizeLimit()
{
    ::setrlimit(RLIMIT_FSIZE, &m_before);
}

SmallDisk::SmallDisk(qsizetype bytes)
{
    const QByteArray options = "size=" + QByteArray::number(bytes);
    m_isMounted = enterMountNamespace()
        && ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0
        && ::mount("none", QFile::encodeName(folder()).constData(), "tmpfs", 0, options.constData())
            == 0;
}

SmallDisk::~SmallDisk()
{
    if (m_isMounted)
        ::umount2(QFile::encodeName(folder()).constData(), MNT_DETACH);
}

void FullDisk::addRows()
{
    QTest::addColumn<bool>("isRealDisk");
    QTest::newRow("limit") << false;
    QTest::newRow("disk") << true;
}

FullDisk::FullDisk(const SmallDisk &disk) : m_disk(disk)
{
    QFETCH(bool, isRealDisk);
    m_isReal = isRealDisk;
}

const char *FullDisk::reasonToSkip() const
{
    return m_isReal && !m_disk.isMounted() ? "this machine lets nobody mount a file system"
                                           : nullptr;
}

QString FullDisk::place(const QString &path) const
{
    return m_isReal ? m_disk.folder() + u'/' + QFileInfo(path).fileName() : path;
}

std::unique_ptr<FileSizeLimit> FullDisk::runFull() const
{
    return m_isReal ? nullptr : std::make_unique<FileSizeLimit>(200'000);
}

QString FullDisk::error() const
{
    return qt_error_string(m_isReal ? ENOSPC : EFBIG);
}
