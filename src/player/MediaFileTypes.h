// The kinds of file that the player opens.
#pragma once

#include <QStringList>

namespace zeph {

/// File name extensions of the accepted video and audio files, lower case and without the dot.
const QStringList &mediaFileExtensions();

} // namespace zeph
