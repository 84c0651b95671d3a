// Numbers of the display modes' geometry, and what holds for every view and picture.
#include "CalculatedNumbers.h"
#include "surface/PlayerLayerGeometry.h"

#include <QRandomGenerator>
#include <QTest>

#include <cmath>
#include <limits>
#include <numbers>

using namespace zeph;
using Mode = PortraitDisplayMode;

namespace {

const QRectF view(0, 0, 1000, 500);
const QSizeF wide(1920, 1080);
const QSizeF unknown(0, 0);

// From tiny to huge, as often of one order of magnitude as of another.
double randomLength(QRandomGenerator &random, double shortest, double longest)
{
    return shortest * std::pow(longest / shortest, random.generateDouble());
}

struct Sample {
    QRectF bounds;
    QSizeF picture;
    double pan;
};

Sample randomSample(QRandomGenerator &random)
{
    // A column not higher than 1 is treated as one of that height, so it is not always covered.
    return {
        QRectF(0, 0, randomLength(random, 1, 8000), randomLength(random, 1.001, 8000)),
        QSizeF(randomLength(random, 1, 8000), randomLength(random, 1, 8000)),
        random.generateDouble() * 2 - 1,
    };
}

// With room for rounding, which grows with the numbers.
bool covers(const QRectF &outer, const QRectF &inner)
{
    const double slack = precision * (std::abs(outer.x()) + outer.width() + outer.height() + 1);
    return outer.left() <= inner.left() + slack && outer.top() <= inner.top() + slack
        && outer.right() >= inner.right() - slack && outer.bottom() >= inner.bottom() - slack;
}

constexpr int samples = 20000;

} // namespace

class TestPlayerLayerGeometry : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void rawValues();
    void modesFromRawValues();

    void normal();
    void normalKeepsTheOriginOfTheBounds();
    void fill();
    void portraitLeavesTheOriginOfTheBoundsOut();
    void rotate();
    void manual_data();
    void manual();
    void manualBeforeTheSizeIsKnown_data();
    void manualBeforeTheSizeIsKnown();
    void manualWithAPortraitPicture();
    void smartIsManual();
    void pictureOfTheColumnsShape();
    void oddPictures_data();
    void oddPictures();
    void viewWithoutHeight_data();
    void viewWithoutHeight();
    void enlargement();

    void columnIsInTheMiddleOfEveryView();
    void pictureCoversTheColumnAtEveryPan();
    void outermostPansAlignTheEdges();
    void panMovesInProportion();
    void turnedPictureFillsTheColumn();
    void enlargementKeepsTheMiddle();
};

void TestPlayerLayerGeometry::rawValues()
{
    QStringList titles;
    for (Mode mode : allPortraitDisplayModes)
        titles << rawValue(mode);
    QCOMPARE(titles,
        QStringList({ QStringLiteral("Normal"), QStringLiteral("Portrait Fill"),
            QStringLiteral("Portrait Rotate 90°"), QStringLiteral("Manual Reframe"),
            QStringLiteral("Smart Reframe") }));
}

void TestPlayerLayerGeometry::modesFromRawValues()
{
    for (Mode mode : allPortraitDisplayModes)
        QVERIFY(portraitDisplayModeFromRawValue(rawValue(mode)) == mode);
    for (const char16_t *text :
        { u"", u"normal", u"Normal ", u"Fill", u"Portrait Rotate 90", u"SMART REFRAME" })
        QVERIFY(!portraitDisplayModeFromRawValue(text));
    QVERIFY(!portraitDisplayModeFromRawValue({}));
}

void TestPlayerLayerGeometry::normal()
{
    for (double pan : { -1.0, 0.0, 0.7 }) {
        const PlayerLayerGeometry geometry = playerLayerGeometry(Mode::Normal, view, wide, pan);
        QVERIFY(isSame(geometry.crop, view));
        QVERIFY(isSame(geometry.player, view));
        QVERIFY(!geometry.masksToBounds);
        QCOMPARE(geometry.rotation, 0.0);
    }
}

void TestPlayerLayerGeometry::normalKeepsTheOriginOfTheBounds()
{
    const PlayerLayerGeometry geometry =
        playerLayerGeometry(Mode::Normal, { 30, -20, 1000, 500 }, wide, 0);
    QVERIFY(isSame(geometry.crop, { 30, -20, 1000, 500 }));
    QVERIFY(isSame(geometry.player, { 0, 0, 1000, 500 }));
}

void TestPlayerLayerGeometry::fill()
{
    for (QSizeF size : { wide, unknown, QSizeF(3, 4000) }) {
        const PlayerLayerGeometry geometry = playerLayerGeometry(Mode::Fill, view, size, 1);
        QVERIFY(isSame(geometry.crop, { 359.375, 0, 281.25, 500 }));
        QVERIFY(isSame(geometry.player, { -18.28125, -32.5, 317.8125, 565 }));
        QVERIFY(geometry.masksToBounds);
        QCOMPARE(geometry.rotation, 0.0);
    }
}

void TestPlayerLayerGeometry::portraitLeavesTheOriginOfTheBoundsOut()
{
    for (Mode mode : { Mode::Fill, Mode::Rotate, Mode::Manual, Mode::Smart }) {
        QVERIFY(isSame(playerLayerGeometry(mode, { 30, -20, 1000, 500 }, wide, 0).crop,
            { 359.375, 0, 281.25, 500 }));
    }
}

void TestPlayerLayerGeometry::rotate()
{
    const PlayerLayerGeometry geometry = playerLayerGeometry(Mode::Rotate, view, wide, 1);
    QVERIFY(isSame(geometry.crop, { 359.375, 0, 281.25, 500 }));
    QVERIFY(geometry.masksToBounds);
    QVERIFY(isSame(geometry.player, { -109.375, 109.375, 500, 281.25 }));
    QVERIFY(std::abs(geometry.rotation - -1.5707963267948966) <= precision);
}

void TestPlayerLayerGeometry::manual_data()
{
    QTest::addColumn<double>("pan");
    QTest::addColumn<double>("x");
    constexpr double width = 1920.0 / 1080 * 500;
    constexpr double overflow = width - 281.25;
    QTest::newRow("centred") << 0.0 << -overflow / 2;
    QTest::newRow("left edge") << 1.0 << 0.0;
    QTest::newRow("right edge") << -1.0 << -overflow;
    QTest::newRow("in between") << 0.175 << -overflow * 0.4125;
}

void TestPlayerLayerGeometry::manual()
{
    QFETCH(double, pan);
    QFETCH(double, x);
    constexpr double width = 888.8888888888889;
    QVERIFY(isSame(pannedVideoRectangle({ 281.25, 500 }, wide, pan), QRectF(x, 0, width, 500)));

    const PlayerLayerGeometry geometry = playerLayerGeometry(Mode::Manual, view, wide, pan);
    QVERIFY(isSame(geometry.crop, { 359.375, 0, 281.25, 500 }));
    QVERIFY(geometry.masksToBounds);
    QVERIFY(isSame(geometry.player, { x - width * 0.065, -32.5, width * 1.13, 565 }));
}

void TestPlayerLayerGeometry::manualBeforeTheSizeIsKnown_data()
{
    QTest::addColumn<QSizeF>("size");
    QTest::newRow("nothing") << unknown;
    QTest::newRow("no width") << QSizeF(0, 1080);
    QTest::newRow("no height") << QSizeF(1920, 0);
    QTest::newRow("negative") << QSizeF(-1, -1);
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("not a number") << QSizeF(nan, nan);
}

void TestPlayerLayerGeometry::manualBeforeTheSizeIsKnown()
{
    QFETCH(QSizeF, size);
    for (double pan : { -1.0, 0.0, 1.0 }) {
        QVERIFY(isSame(playerLayerGeometry(Mode::Manual, view, size, pan).player,
            { -18.28125, -32.5, 317.8125, 565 }));
    }
}

void TestPlayerLayerGeometry::manualWithAPortraitPicture()
{
    const QSizeF narrow(500, 1000);
    for (double pan : { -1.0, 0.0, 1.0 }) {
        QVERIFY(isSame(
            pannedVideoRectangle({ 281.25, 500 }, narrow, pan), { 0, -31.25, 281.25, 562.5 }));
        QVERIFY(isSame(playerLayerGeometry(Mode::Manual, view, narrow, pan).player,
            { -18.28125, -67.8125, 317.8125, 635.625 }));
    }
}

void TestPlayerLayerGeometry::smartIsManual()
{
    for (double pan : { -1.0, 0.28875, 1.0 }) {
        const PlayerLayerGeometry smart = playerLayerGeometry(Mode::Smart, view, wide, pan);
        const PlayerLayerGeometry manual = playerLayerGeometry(Mode::Manual, view, wide, pan);
        QCOMPARE(smart.crop, manual.crop);
        QCOMPARE(smart.player, manual.player);
        QVERIFY(smart.masksToBounds);
    }
}

void TestPlayerLayerGeometry::pictureOfTheColumnsShape()
{
    for (double pan : { -1.0, 0.0, 1.0 })
        QVERIFY(isSame(
            pannedVideoRectangle({ 281.25, 500 }, { 1080, 1920 }, pan), { 0, 0, 281.25, 500 }));
}

void TestPlayerLayerGeometry::oddPictures_data()
{
    QTest::addColumn<QSizeF>("size");
    QTest::addColumn<QRectF>("expected");
    QTest::newRow("1×1") << QSizeF(1, 1) << QRectF(-109.375, 0, 500, 500);
    // No narrower than a hundredth of its height.
    QTest::newRow("3×4000") << QSizeF(3, 4000) << QRectF(0, -13812.5, 281.25, 28125);
    QTest::newRow("4000×3") << QSizeF(4000, 3) << QRectF(-(2e6 / 3 - 281.25) / 2, 0, 2e6 / 3, 500);
    QTest::newRow("2160p") << QSizeF(3840, 2160) << QRectF(-303.81944444444446, 0, 8000 / 9.0, 500);
}

void TestPlayerLayerGeometry::oddPictures()
{
    QFETCH(QSizeF, size);
    QFETCH(QRectF, expected);
    QVERIFY(isSame(pannedVideoRectangle({ 281.25, 500 }, size, 0), expected));
}

void TestPlayerLayerGeometry::viewWithoutHeight_data()
{
    QTest::addColumn<QSizeF>("column");
    QTest::addColumn<QRectF>("expected");
    // The shape of a column that is not higher than 1 counts as its width.
    QTest::newRow("half a unit") << QSizeF(0.28125, 0.5) << QRectF(-0.109375, 0, 0.5, 0.5);
    QTest::newRow("one unit") << QSizeF(0.5625, 1) << QRectF(-0.21875, 0, 1, 1);
    QTest::newRow("nothing") << QSizeF(0, 0) << QRectF(0, 0, 0, 0);
}

void TestPlayerLayerGeometry::viewWithoutHeight()
{
    QFETCH(QSizeF, column);
    QFETCH(QRectF, expected);
    QVERIFY(isSame(pannedVideoRectangle(column, { 1, 1 }, 0), expected));
    // Narrower than such a column: its width over its height is 0.5625, but it counts as 0.28125.
    QVERIFY(isSame(pannedVideoRectangle({ 0.28125, 0.5 }, { 2, 5 }, 1), { 0, 0, 0.2, 0.5 }));
}

void TestPlayerLayerGeometry::enlargement()
{
    QVERIFY(isSame(enlarged({ 0, 0, 0, 0 }), { 0, 0, 0, 0 }));
    QVERIFY(isSame(enlarged({ 10, 20, 100, 200 }), { 3.5, 7, 113, 226 }));
    QCOMPARE(enlarged({ 0, 0, 1, 1 }).width(), 1 + 0.12999999999999989);
}

void TestPlayerLayerGeometry::columnIsInTheMiddleOfEveryView()
{
    QRandomGenerator random(1);
    for (int i = 0; i < samples; ++i) {
        const Sample sample = randomSample(random);
        for (Mode mode : { Mode::Fill, Mode::Rotate, Mode::Manual, Mode::Smart }) {
            const QRectF column =
                playerLayerGeometry(mode, sample.bounds, sample.picture, sample.pan).crop;
            QVERIFY(std::abs(column.width() / column.height() - 9.0 / 16) <= precision);
            QCOMPARE(column.height(), sample.bounds.height());
            QVERIFY(std::abs(column.center().x() - sample.bounds.center().x()) <= precision);
            if (sample.bounds.width() >= column.width())
                QVERIFY(covers(sample.bounds, column));
        }
    }
}

void TestPlayerLayerGeometry::pictureCoversTheColumnAtEveryPan()
{
    QRandomGenerator random(2);
    for (int i = 0; i < samples; ++i) {
        const Sample sample = randomSample(random);
        for (Mode mode : { Mode::Fill, Mode::Manual, Mode::Smart }) {
            for (double pan : { -1.0, sample.pan, 1.0 }) {
                const PlayerLayerGeometry geometry =
                    playerLayerGeometry(mode, sample.bounds, sample.picture, pan);
                QVERIFY(covers(geometry.player, QRectF(QPointF(0, 0), geometry.crop.size())));
            }
        }
    }
}

void TestPlayerLayerGeometry::outermostPansAlignTheEdges()
{
    QRandomGenerator random(3);
    for (int i = 0; i < samples; ++i) {
        const Sample sample = randomSample(random);
        const QSizeF column = cropRectangle(Mode::Manual, sample.bounds).size();
        const QRectF left = pannedVideoRectangle(column, sample.picture, 1);
        const QRectF right = pannedVideoRectangle(column, sample.picture, -1);
        QCOMPARE(left.left(), 0.0);
        QVERIFY(std::abs(right.right() - column.width()) <= precision * (1 + right.width()));
        QCOMPARE(left.size(), right.size());
    }
}

void TestPlayerLayerGeometry::panMovesInProportion()
{
    QRandomGenerator random(4);
    for (int i = 0; i < samples; ++i) {
        const Sample sample = randomSample(random);
        const QSizeF column = cropRectangle(Mode::Manual, sample.bounds).size();
        const QRectF left = pannedVideoRectangle(column, sample.picture, 1);
        const QRectF right = pannedVideoRectangle(column, sample.picture, -1);
        const QRectF panned = pannedVideoRectangle(column, sample.picture, sample.pan);
        const double share = (sample.pan + 1) / 2;
        const double expected = right.x() + (left.x() - right.x()) * share;
        QVERIFY(std::abs(panned.x() - expected) <= precision * (1 + panned.width()));
        QCOMPARE(panned.y(), left.y());
    }
}

void TestPlayerLayerGeometry::turnedPictureFillsTheColumn()
{
    QRandomGenerator random(5);
    for (int i = 0; i < samples; ++i) {
        const Sample sample = randomSample(random);
        const PlayerLayerGeometry geometry =
            playerLayerGeometry(Mode::Rotate, sample.bounds, sample.picture, sample.pan);
        QCOMPARE(geometry.player.size(), geometry.crop.size().transposed());
        const QPointF middle(geometry.crop.width() / 2, geometry.crop.height() / 2);
        const QPointF offset = geometry.player.center() - middle;
        QVERIFY(std::hypot(offset.x(), offset.y()) <= precision);
        QCOMPARE(geometry.rotation, -std::numbers::pi / 2);
    }
}

void TestPlayerLayerGeometry::enlargementKeepsTheMiddle()
{
    QRandomGenerator random(6);
    for (int i = 0; i < samples; ++i) {
        const QRectF rectangle(random.generateDouble() * 2000 - 1000,
            random.generateDouble() * 2000 - 1000, randomLength(random, 0.1, 8000),
            randomLength(random, 0.1, 8000));
        const QRectF grown = enlarged(rectangle);
        const QPointF offset = grown.center() - rectangle.center();
        QVERIFY(std::hypot(offset.x(), offset.y()) <= precision);
        QVERIFY(std::abs(grown.width() / rectangle.width() - 1.13) <= precision);
        QVERIFY(std::abs(grown.height() / rectangle.height() - 1.13) <= precision);
    }
}

QTEST_GUILESS_MAIN(TestPlayerLayerGeometry)
#include "tst_player_layer_geometry.moc"
