// How much memory this process has in use.
#pragma once

#include <QtGlobal>

namespace zeph::bench {

/// Forgets the peak so far, so that peakMemory() tells that from now on.
void resetPeakMemory();
/// In bytes. Linux counts it in pages.
qint64 peakMemory();
qint64 currentMemory();

} // namespace zeph::bench
