// What becomes of memory that is not needed any more.
#pragma once

namespace zeph {

/// From now on, what is freed goes back to the system at once, but for small remains and what lies
/// between blocks in use. Otherwise the C library keeps more and more of it, separately for each of
/// the many threads that decode: after some large videos a window that plays nothing holds hundreds
/// of MB that nobody uses. To be called before other threads start.
void keepNoFreedMemory();

/// Gives back, in another thread, the pages that lie free between blocks in use. What comes next
/// would have use for them, and until it is done all threads wait for memory, some tens of
/// milliseconds: this is for when nothing has come for a while.
void returnScatteredMemory();

} // namespace zeph
