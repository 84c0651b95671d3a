#include "platform/RunTimeModules.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace zeph {

QString runTimeModulesFolder()
{
    QString folder =
        QCoreApplication::applicationDirPath() + QStringLiteral("/" ZEPH_MODULES_FOLDER);
#ifdef ZEPH_BUILT_MODULES
    // Tests and benchmarks lie all over the build folder.
    if (!QFileInfo::exists(folder))
        return QStringLiteral(ZEPH_BUILT_MODULES);
#endif
    return folder;
}

} // namespace zeph
