// When a live stream that has ended is opened again.
#include "platform/LiveReload.h"
#include "support/Patience.h"

#include <QElapsedTimer>

using zeph::LiveReload;
using namespace std::chrono_literals;

class TestLiveReload : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void reloadsAfterTheFirstDelay();
    void delaysDoubleUpToTheLongest();
    void cancelledReloadDoesNotHappen();
    void cancellingKeepsTheDelay();
    void resetForgetsTheDrops();
    void recoversOnceUpLongEnough();
    void briefUpTimeIsNoRecovery();
    void waitingIsNoUpTime();
};

void TestLiveReload::reloadsAfterTheFirstDelay()
{
    LiveReload reload;
    int reloads = 0;
    QElapsedTimer timer;
    timer.start();
    reload.schedule([&reloads] { ++reloads; });
    QTRY_COMPARE(reloads, 1);
    QVERIFY(timer.elapsed() >= 999);
}

void TestLiveReload::delaysDoubleUpToTheLongest()
{
    LiveReload reload;
    QList<std::chrono::milliseconds> delays;
    for (int drop = 0; drop < 8; ++drop) {
        delays.append(reload.nextDelay());
        reload.schedule([] {});
    }
    const QList<std::chrono::milliseconds> expected { 1s, 2s, 4s, 8s, 16s, 30s, 30s, 30s };
    QCOMPARE(delays, expected);
}

void TestLiveReload::cancelledReloadDoesNotHappen()
{
    LiveReload reload;
    bool reloaded = false;
    reload.schedule([&reloaded] { reloaded = true; });
    reload.cancel();
    QTest::qWait(1200);
    QVERIFY(!reloaded);
}

void TestLiveReload::cancellingKeepsTheDelay()
{
    LiveReload reload;
    reload.schedule([] {});
    reload.cancel();
    QCOMPARE(reload.nextDelay(), 2000ms);
}

void TestLiveReload::resetForgetsTheDrops()
{
    LiveReload reload;
    bool reloaded = false;
    reload.schedule([] {});
    reload.schedule([&reloaded] { reloaded = true; });
    reload.reset();
    QCOMPARE(reload.nextDelay(), LiveReload::firstDelay);
    QTest::qWait(2200);
    QVERIFY(!reloaded);
}

void TestLiveReload::recoversOnceUpLongEnough()
{
    LiveReload reload;
    reload.schedule([] {});
    reload.streamStarted();
    QTest::qWait(2100);
    reload.schedule([] {});
    // It began anew with the first delay, so the second is next.
    QCOMPARE(reload.nextDelay(), 2000ms);
}

void TestLiveReload::briefUpTimeIsNoRecovery()
{
    LiveReload reload;
    reload.schedule([] {});
    reload.streamStarted();
    QTest::qWait(100);
    reload.schedule([] {});
    QCOMPARE(reload.nextDelay(), 4000ms);
}

void TestLiveReload::waitingIsNoUpTime()
{
    LiveReload reload;
    reload.streamStarted();
    reload.schedule([] {});
    QTest::qWait(2100);
    // It has not started again in that time.
    reload.schedule([] {});
    QCOMPARE(reload.nextDelay(), 4000ms);
}

QTEST_GUILESS_MAIN(TestLiveReload)
#include "tst_live_reload.moc"
