#include "support/ReadOnlyFolder.h"

#include <linux/capability.h>
#include <sys/fsuid.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace {

constexpr uid_t nobody = 65534;
constexpr QFile::Permissions readOnly = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup
    | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;

// Answers with whose rights counted so far. Only root can act as somebody else.
uid_t actAs(uid_t user)
{
    return static_cast<uid_t>(::setfsuid(user));
}

} // namespace

ReadOnlyFolder::ReadOnlyFolder(const QString &path)
    : m_path(path), m_permissionsBefore(QFile::permissions(path))
{
    if (!QFile::setPermissions(m_path, readOnly))
        qFatal("The folder cannot be closed");
    m_userBefore = actAs(::geteuid() == 0 ? nobody : ::geteuid());
}

ReadOnlyFolder::~ReadOnlyFolder()
{
    actAs(m_userBefore);
    QFile::setPermissions(m_path, m_permissionsBefore);
}

void obeyPermissionsInPrograms()
{
    if (::geteuid() == 0 && ::prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE) != 0)
        qFatal("Root's rights cannot be limited");
}
