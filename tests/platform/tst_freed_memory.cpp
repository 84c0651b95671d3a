// What is freed goes back to the system.
#include "platform/FreedMemory.h"

#include "support/Patience.h"

#include <QFile>
#include <QTest>

#include <malloc.h>
#include <thread>
#include <unistd.h>
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

/// Bytes of memory that this process takes up now.
size_t residentMemory()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').at(1).toULong() * size_t(::sysconf(_SC_PAGESIZE));
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
    void initTestCase() { keepNoFreedMemory(); }

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

    void whatLiesBetweenBlocksInUseGoesBackWhenAskedFor()
    {
        constexpr int count = 1024;
        std::vector<std::vector<char>> blocks;
        for (int i = 0; i < count; ++i)
            blocks.emplace_back(mebibyte / 16, 'x');
        for (int i = 0; i < count; ++i) {
            if (i % 4 != 0)
                std::vector<char>().swap(blocks[i]);
        }
        const size_t before = residentMemory();
        QVERIFY(before > 60 * mebibyte);
        returnScatteredMemory();
        QTRY_VERIFY(residentMemory() < before - 40 * mebibyte);
        QCOMPARE(blocks.back().size(), size_t(0));
        QCOMPARE(blocks.front().back(), 'x');
    }
};

QTEST_GUILESS_MAIN(FreedMemoryTest)
#include "tst_freed_memory.moc"
