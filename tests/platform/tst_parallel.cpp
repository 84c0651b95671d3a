// Work that is shared among threads.
#include "platform/Parallel.h"

#include <QSemaphore>
#include <QTest>
#include <QThreadPool>

#include <algorithm>
#include <atomic>
#include <vector>

using namespace zeph;

namespace {

// Occupies all threads of the global pool.
class BusyPool {
public:
    BusyPool()
    {
        while (m_pool.tryStart([this] { m_end.acquire(); }))
            ++m_count;
    }

    ~BusyPool()
    {
        m_end.release(m_count);
        m_pool.waitForDone();
    }

private:
    QThreadPool &m_pool = *QThreadPool::globalInstance();
    QSemaphore m_end;
    int m_count = 0;
};

bool allAreCalledOnce(qsizetype count)
{
    std::vector<std::atomic<int>> calls(static_cast<std::size_t>(count));
    forEachInParallel(count, [&](qsizetype i) { ++calls[static_cast<std::size_t>(i)]; });
    return std::all_of(calls.begin(), calls.end(), [](const auto &called) { return called == 1; });
}

} // namespace

class ParallelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        QThreadPool::globalInstance()->setMaxThreadCount(QThread::idealThreadCount());
    }

    void eachIsCalledOnce()
    {
        for (const qsizetype count : { 0, 1, 2, 3, 100, 10'000 })
            QVERIFY(allAreCalledOnce(count));
    }

    void othersWorkIsNotWaitedFor()
    {
        const BusyPool busy;
        QVERIFY(allAreCalledOnce(1000));
    }

    void threadsThatAreFreeHelp()
    {
        QThreadPool::globalInstance()->setMaxThreadCount(2);
        QSemaphore met;
        std::atomic<int> together = 0;
        // Both return only when both are called.
        forEachInParallel(2, [&](qsizetype) {
            met.release();
            together += met.tryAcquire(2, 20'000);
            met.release(2);
        });
        QCOMPARE(together.load(), 2);
    }

    void thePoolsOnlyThreadMayCall()
    {
        QThreadPool &pool = *QThreadPool::globalInstance();
        pool.setMaxThreadCount(1);
        std::atomic<bool> isRight = false;
        pool.start([&] { isRight = allAreCalledOnce(1000); });
        QVERIFY(pool.waitForDone(20'000));
        QVERIFY(isRight);
    }
};

QTEST_GUILESS_MAIN(ParallelTest)
#include "tst_parallel.moc"
