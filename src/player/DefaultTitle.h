// The title of what has no name of its own.
#pragma once

#include <QString>

namespace zeph {

inline const QString defaultTitle = QStringLiteral("Zeph Player");

} // namespace zeph
