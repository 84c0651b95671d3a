// Delays that run once, are replaced and are cancelled.
#include "platform/Delay.h"
#include "support/Patience.h"

#include <QElapsedTimer>

#include <memory>

using zeph::Delay;
using namespace std::chrono_literals;

class TestDelay : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void runsOnce();
    void neverRunsEarly();
    void runsNothingOnceCancelled();
    void cancellingNothingIsHarmless();
    void startingAgainReplacesTheWork();
    void runsNothingOnceDestroyed();
    void workMayStartItAgain();
    void workMayCancelIt();
    void workMayDestroyIt();
    void letsGoOfTheWork();
};

void TestDelay::runsOnce()
{
    Delay delay;
    int runs = 0;
    QVERIFY(!delay.isPending());
    delay.start(1ms, [&runs] { ++runs; });
    QVERIFY(delay.isPending());
    QCOMPARE(runs, 0);
    QTRY_COMPARE(runs, 1);
    QVERIFY(!delay.isPending());
    QTest::qWait(20);
    QCOMPARE(runs, 1);
}

void TestDelay::neverRunsEarly()
{
    Delay delay;
    bool ran = false;
    QElapsedTimer timer;
    timer.start();
    delay.start(60ms, [&ran] { ran = true; });
    QTRY_VERIFY(ran);
    QVERIFY(timer.elapsed() >= 59);
}

void TestDelay::runsNothingOnceCancelled()
{
    Delay delay;
    bool ran = false;
    delay.start(1ms, [&ran] { ran = true; });
    delay.cancel();
    QVERIFY(!delay.isPending());
    QTest::qWait(20);
    QVERIFY(!ran);
}

void TestDelay::cancellingNothingIsHarmless()
{
    Delay delay;
    delay.cancel();
    QVERIFY(!delay.isPending());
}

void TestDelay::startingAgainReplacesTheWork()
{
    Delay delay;
    bool firstRan = false;
    bool secondRan = false;
    delay.start(1ms, [&firstRan] { firstRan = true; });
    delay.start(2ms, [&secondRan] { secondRan = true; });
    QTRY_VERIFY(secondRan);
    QVERIFY(!firstRan);
}

void TestDelay::runsNothingOnceDestroyed()
{
    bool ran = false;
    {
        Delay delay;
        delay.start(1ms, [&ran] { ran = true; });
    }
    QTest::qWait(20);
    QVERIFY(!ran);
}

void TestDelay::workMayStartItAgain()
{
    Delay delay;
    int runs = 0;
    std::function<void()> work = [&] {
        if (++runs < 3)
            delay.start(1ms, work);
    };
    delay.start(1ms, work);
    QTRY_COMPARE(runs, 3);
    QVERIFY(!delay.isPending());
}

void TestDelay::workMayCancelIt()
{
    Delay delay;
    bool ran = false;
    delay.start(1ms, [&] {
        delay.cancel();
        ran = true;
    });
    QTRY_VERIFY(ran);
    QVERIFY(!delay.isPending());
}

void TestDelay::workMayDestroyIt()
{
    auto delay = std::make_unique<Delay>();
    bool ran = false;
    delay->start(1ms, [&] {
        delay.reset();
        ran = true;
    });
    QTRY_VERIFY(ran);
}

void TestDelay::letsGoOfTheWork()
{
    Delay delay;
    auto held = std::make_shared<int>();
    delay.start(1ms, [held] {});
    QTRY_COMPARE(held.use_count(), 1);
    delay.start(1h, [held] {});
    delay.cancel();
    QCOMPARE(held.use_count(), 1);
}

QTEST_GUILESS_MAIN(TestDelay)
#include "tst_delay.moc"
