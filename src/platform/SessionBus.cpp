#include "platform/SessionBus.h"

#include <QDir>
#include <QFileInfo>

namespace zeph {

bool hasSessionBus()
{
    if (!qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"))
        return true;
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !runtime.isEmpty() && QFileInfo::exists(QDir(runtime).filePath(QStringLiteral("bus")));
}

} // namespace zeph
