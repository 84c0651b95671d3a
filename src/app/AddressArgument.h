// The one command line argument: what a desktop hands over when it opens something with us.
#pragma once

#include <QString>
#include <QUrl>

namespace zeph {

/// An address as it stands, or a file path, relative to the current folder or not. A name that
/// exists as a file is that file, whatever else it may look like.
QUrl addressFromArgument(const QString &argument);

} // namespace zeph
