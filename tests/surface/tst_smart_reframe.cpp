// Numbers of the column that follows faces, and what holds for all of them.
#include "CalculatedNumbers.h"
#include "surface/SmartReframe.h"

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>

using namespace zeph;

namespace {

QRectF faceAround(double middle, double width = 0.1)
{
    return { middle - width / 2, 0.4, width, 0.2 };
}

} // namespace

class TestSmartReframe : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void targets_data();
    void targets();
    void noFaceNoTarget();
    void twoStepsTowardsAFace();
    void decayWithoutFaces();
    void noDistanceIsTooSmall();
    void largest();
    void firstOfEquals();
    void largestAsByAStableSort();
    void panStaysWithinItsRange();
};

void TestSmartReframe::targets_data()
{
    QTest::addColumn<double>("middle");
    QTest::addColumn<double>("target");
    QTest::newRow("left edge") << 0.0 << 1.0;
    QTest::newRow("left of the middle") << 0.25 << 0.5;
    QTest::newRow("middle") << 0.5 << 0.0;
    QTest::newRow("right of the middle") << 0.9 << -0.8;
    QTest::newRow("right edge") << 1.0 << -1.0;
    QTest::newRow("left of the picture") << -0.04 << 1.0;
    QTest::newRow("right of the picture") << 1.04 << -1.0;
    QTest::newRow("far away") << 40.0 << -1.0;
}

void TestSmartReframe::targets()
{
    QFETCH(double, middle);
    QFETCH(double, target);
    for (double width : { 0.01, 0.1, 0.5 })
        QVERIFY(isSame(targetPan(faceAround(middle, width)), target));
}

void TestSmartReframe::noFaceNoTarget()
{
    QCOMPARE(targetPan(std::nullopt), 0.0);
    QVERIFY(!largestFace({}));
}

void TestSmartReframe::twoStepsTowardsAFace()
{
    const double target = targetPan(faceAround(0.25));
    const double once = easedPan(0, target);
    QVERIFY(isSame(once, 0.175));
    QVERIFY(isSame(easedPan(once, target), 0.28875));
}

void TestSmartReframe::decayWithoutFaces()
{
    double pan = 1;
    for (double expected : { 0.65, 0.4225, 0.274625, 0.17850625 }) {
        pan = easedPan(pan, targetPan(std::nullopt));
        QVERIFY(isSame(pan, expected));
    }
}

void TestSmartReframe::noDistanceIsTooSmall()
{
    QCOMPARE(easedPan(1e-12, 0), 0.65e-12);
    QCOMPARE(easedPan(0, -1e-12), -0.35e-12);
    QCOMPARE(easedPan(0.3, 0.3), 0.3);
}

void TestSmartReframe::largest()
{
    const QRectF small(0, 0, 0.1, 0.1);
    const QRectF large(0.5, 0.5, 0.2, 0.3);
    const QRectF tall(0.9, 0, 0.05, 0.9);
    QVERIFY(largestFace({ small }) == small);
    QVERIFY(largestFace({ small, large, tall }) == large);
    QVERIFY(largestFace({ tall, small, large }) == large);
    QVERIFY(largestFace({ QRectF(0.2, 0.2, 0, 0) }) == QRectF(0.2, 0.2, 0, 0));
}

void TestSmartReframe::firstOfEquals()
{
    // Exactly equal, although of different shapes.
    const QRectF flat(0.1, 0.1, 0.5, 0.125);
    const QRectF square(0.6, 0.1, 0.25, 0.25);
    const QRectF small(0, 0, 0.1, 0.1);
    QVERIFY(largestFace({ flat, square }) == flat);
    QVERIFY(largestFace({ square, flat }) == square);
    QVERIFY(largestFace({ small, square, small, flat }) == square);
}

void TestSmartReframe::largestAsByAStableSort()
{
    QRandomGenerator random(1);
    for (int i = 0; i < 5000; ++i) {
        QList<QRectF> faces;
        // Of few sizes, so that many are equal; each in a place of its own.
        for (int face = random.bounded(1, 40); face > 0; --face) {
            faces << QRectF(random.generateDouble(), random.generateDouble(),
                0.125 * random.bounded(1, 4), 0.25 * random.bounded(1, 3));
        }
        QList<QRectF> sorted = faces;
        std::ranges::stable_sort(sorted, std::ranges::greater(),
            [](const QRectF &face) { return face.width() * face.height(); });
        QVERIFY(largestFace(faces) == sorted.first());
    }
}

void TestSmartReframe::panStaysWithinItsRange()
{
    QRandomGenerator random(2);
    double pan = 0;
    for (int i = 0; i < 100000; ++i) {
        const double target = targetPan(faceAround(random.generateDouble() * 3 - 1));
        QVERIFY(target >= -1 && target <= 1);
        const double eased = easedPan(pan, target);
        QVERIFY(isSame(target - eased, (target - pan) * 0.65));
        pan = eased;
        QVERIFY(pan >= -1 && pan <= 1);
    }
}

QTEST_GUILESS_MAIN(TestSmartReframe)
#include "tst_smart_reframe.moc"
