// What regions are called in English.
#pragma once

#include <QString>
#include <QStringList>

namespace zeph {

/// The name of the region with this code of two letters, in the English of the United States. The
/// code itself when it is no such code or names nothing. Any thread.
QString regionName(const QString &code);

/// `codes` in the order of the regions' names, as an English dictionary has them: letter case does
/// not count, accents come second. Codes with the same name are in the order of their letters. Any
/// thread.
QStringList sortedByRegionName(const QStringList &codes);

} // namespace zeph
