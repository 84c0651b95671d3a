// Work on all processors at once.
#pragma once

#include <QtGlobal>

#include <functional>

namespace zeph {

/// Calls `work` with each of 0…count − 1 once, in no certain order, and returns when all calls
/// have. They come from the calling thread, and from threads of the global pool as far as they have
/// nothing else to do, so that nobody waits for them. `work` throws nothing. Any thread, those of
/// the pool included.
void forEachInParallel(qsizetype count, const std::function<void(qsizetype)> &work);

} // namespace zeph
