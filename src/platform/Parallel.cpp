#include "platform/Parallel.h"

#include <QSemaphore>
#include <QThreadPool>

#include <algorithm>
#include <atomic>

namespace zeph {

void forEachInParallel(qsizetype count, const std::function<void(qsizetype)> &work)
{
    std::atomic<qsizetype> next = 0;
    const auto workOn = [&] {
        for (qsizetype i = next++; i < count; i = next++)
            work(i);
    };

    QThreadPool &pool = *QThreadPool::globalInstance();
    QSemaphore finished;
    int helpers = 0;
    const qsizetype wanted = std::min<qsizetype>(count, pool.maxThreadCount()) - 1;
    while (helpers < wanted && pool.tryStart([&] {
        workOn();
        finished.release();
    }))
        ++helpers;
    workOn();
    finished.acquire(helpers);
}

} // namespace zeph
