// The memory that is allocated piece by piece.
#pragma once

namespace zeph {

/// Lets all threads allocate from one heap. With one each, what a thread freed is of no use to the
/// others: lists of a million channels, each read by another thread, would leave as much behind as
/// they took. To be called before there is a second thread.
void useOneHeap();

} // namespace zeph
