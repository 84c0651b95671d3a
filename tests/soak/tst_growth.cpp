// What counts as growth.
#include "Growth.h"

#include <QTest>

#include <functional>

namespace {

/// An hour of it, a point for each minute.
Growth hourOf(const std::function<double(int minute)> &figure)
{
    QList<QPointF> points;
    for (int minute = 1; minute <= 60; ++minute)
        points << QPointF(minute, figure(minute));
    return growthOf(points, 60);
}

} // namespace

class GrowthTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void whatSettlesIsFlat()
    {
        const Growth growth = hourOf([](int minute) { return minute < 10 ? 20.0 * minute : 200; });
        QCOMPARE(growth.first, 200.0);
        QCOMPARE(growth.last, 200.0);
        QVERIFY(growth.isFlat(0.03, 0));
    }

    void whatGoesUpAndDownIsFlat()
    {
        const Growth growth = hourOf([](int minute) { return minute % 3 == 0 ? 260.0 : 200; });
        QVERIFY(growth.isFlat(0.03, 0));
    }

    void whatShrinksIsFlat()
    {
        const Growth growth = hourOf([](int minute) { return 300.0 - minute; });
        QVERIFY(growth.isFlat(0.03, 0));
    }

    void whatGrowsIsNot()
    {
        const Growth growth =
            hourOf([](int minute) { return 200.0 + minute / 4.0 + minute % 3 * 10; });
        QVERIFY(!growth.isFlat(0.03, 0));
        // 12.5 from the tenth minute to the last.
        QVERIFY(growth.isFlat(0.03, 15));
    }

    void neitherIsWhatGrowsInTheMiddle()
    {
        const Growth growth = hourOf([](int minute) { return minute < 40 ? 200.0 : 220; });
        QVERIFY(!growth.isFlat(0.03, 0));
    }

    void norWhatGrowsAtFirstOrAtLast()
    {
        // The one's line is flat enough, the other's medians are.
        QVERIFY(!hourOf([](int minute) { return minute < 51 ? 200.0 : 210; }).isFlat(0.03, 0));
        QVERIFY(!hourOf([](int minute) {
            return minute > 20 && minute < 50 ? minute * 10.0 : 200;
        }).isFlat(0.03, 0));
    }
};

QTEST_GUILESS_MAIN(GrowthTest)
#include "tst_growth.moc"
