#include "platform/FreedMemory.h"

#include <QThreadPool>

#include <cstdlib>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace zeph {

void keepNoFreedMemory()
{
#ifdef __GLIBC__
    // One heap for all threads. With one each, what a thread freed is of no use to the others:
    // lists of a million channels, each read by another thread, would leave as much behind as they
    // took.
    ::mallopt(M_ARENA_MAX, 1);
    // These are limits in bytes. Unless they are set they grow to 32 MB and 64 MB, with the largest
    // block that is freed.
    constexpr int limit = 1024 * 1024;
    ::mallopt(M_MMAP_THRESHOLD, limit);
    ::mallopt(M_TRIM_THRESHOLD, limit);
#endif
}

void returnScatteredMemory()
{
#ifdef __GLIBC__
    QThreadPool::globalInstance()->start([] { ::malloc_trim(0); });
#endif
}

} // namespace zeph
