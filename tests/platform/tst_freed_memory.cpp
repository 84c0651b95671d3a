// What is freed goes back to the system.
#include "platform/FreedMemory.h"

#include <QTest>

#include <malloc.h>
#include <thread>
#include <vector>

using namespace zeph;

namespace {

constexpr size_t mebibyte = 1 << 20;

/// Bytes that the system has given to this process for its blocks, used or not.
size_t heldMemory()
{
    const auto info = ::mallinfo2();
    return info.arena + info.hblkhd;
}

void useAndFree(size_t blockSize, int count)
{
    std::vector<std::vector<char>> blocks;
    blocks.reserve(count);
    for (int i = 0; i < count; ++i)
        blocks.emplace_back(blockSize);
}

/// As pictures do of a large video and then of a small one.
void useMuch()
{
    useAndFree(30 * mebibyte, 1);
    useAndFree(3 * mebibyte, 16);
    useAndFree(mebibyte / 2, 60);
}

} // namespace

class FreedMemoryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { returnFreedMemory(); }

    void theMainThreadsGoesBack()
    {
        const size_t before = heldMemory();
        useMuch();
        QVERIFY(heldMemory() < before + 4 * mebibyte);
    }

    void soDoesThatOfOtherThreads()
    {
        const size_t before = heldMemory();
        for (int i = 0; i < 8; ++i)
            std::thread(useMuch).join();
        QVERIFY(heldMemory() < before + 8 * mebibyte);
    }
};

QTEST_GUILESS_MAIN(FreedMemoryTest)
#include "tst_freed_memory.moc"
