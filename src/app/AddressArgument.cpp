#include "app/AddressArgument.h"

#include <QDir>

namespace zeph {

QUrl addressFromArgument(const QString &argument)
{
    return QUrl::fromUserInput(argument, QDir::currentPath(), QUrl::AssumeLocalFile);
}

} // namespace zeph
