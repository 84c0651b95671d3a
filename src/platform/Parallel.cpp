#include "platform/Parallel.h"

#include <QSemaphore>
#include <QThreadPool>

#include <algorithm>
#include <atomic>
#include <memory>

namespace zeph {

namespace {

// Lives until the last helper is done with it, which may be after the caller was told.
struct Progress {
    std::atomic<qsizetype> next = 0;
    QSemaphore finishedHelpers;
};

} // namespace

void forEachInParallel(qsizetype count, const std::function<void(qsizetype)> &work)
{
    const auto progress = std::make_shared<Progress>();
    const auto workOn = [&] {
        for (qsizetype i = progress->next++; i < count; i = progress->next++)
            work(i);
    };

    QThreadPool &pool = *QThreadPool::globalInstance();
    const qsizetype wanted = std::min<qsizetype>(count, pool.maxThreadCount()) - 1;
    int helpers = 0;
    while (helpers < wanted && pool.tryStart([&workOn, progress] {
        workOn();
        progress->finishedHelpers.release();
    }))
        ++helpers;
    workOn();
    progress->finishedHelpers.acquire(helpers);
}

} // namespace zeph
