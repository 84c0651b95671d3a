#include "platform/BrowserSandbox.h"

#include <QByteArray>

#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zeph {

namespace {

bool canMakeUserNamespaces()
{
    // In a process of its own: only one without threads may leave its namespace.
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(::unshare(CLONE_NEWUSER) == 0 ? 0 : 1);
    int status = 0;
    return child > 0 && ::waitpid(child, &status, 0) == child && status == 0;
}

} // namespace

BrowserSandbox browserSandbox()
{
    if (qgetenv("QTWEBENGINE_DISABLE_SANDBOX") == "1")
        return BrowserSandbox::Available;
    if (::geteuid() == 0)
        return BrowserSandbox::RefusedToRoot;
    return canMakeUserNamespaces() ? BrowserSandbox::Available : BrowserSandbox::Missing;
}

} // namespace zeph
