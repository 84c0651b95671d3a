// The ring that shows that something goes on.
#include "surface/ActivityIndicator.h"

#include "support/Patience.h"

#include <QImage>
#include <QPainter>
#include <QQuickWindow>
#include <QTest>

#include <cmath>
#include <numbers>

using namespace zeph;

namespace {

constexpr int side = 80;

QImage draw(ActivityIndicator &indicator)
{
    indicator.setSize(QSizeF(side, side));
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    indicator.paint(&painter);
    return image;
}

/// How opaque a spoke is; they are counted clockwise from the top.
int opacity(const QImage &image, int spoke)
{
    const double angle = 2 * std::numbers::pi * spoke / ActivityIndicator::spokeCount;
    const double radius = side / 3.0;
    return image
        .pixelColor(int(std::lround(side / 2.0 + radius * std::sin(angle))),
            int(std::lround(side / 2.0 - radius * std::cos(angle))))
        .alpha();
}

int brightestSpoke(ActivityIndicator &indicator)
{
    const QImage image = draw(indicator);
    int brightest = 0;
    for (int spoke = 1; spoke < ActivityIndicator::spokeCount; ++spoke) {
        if (opacity(image, spoke) > opacity(image, brightest))
            brightest = spoke;
    }
    return brightest;
}

} // namespace

class ActivityIndicatorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void spokesFadeAgainstTheClock()
    {
        ActivityIndicator indicator;
        indicator.setColor(Qt::white);
        const QImage image = draw(indicator);
        QCOMPARE(opacity(image, 0), 255);
        for (int age = 1; age < ActivityIndicator::spokeCount; ++age) {
            const int spoke = ActivityIndicator::spokeCount - age;
            const int younger = (spoke + 1) % ActivityIndicator::spokeCount;
            QVERIFY(opacity(image, spoke) > 0);
            QVERIFY(opacity(image, spoke) < opacity(image, younger));
        }
    }

    void hasTheColourThatItIsGiven()
    {
        ActivityIndicator indicator;
        indicator.setColor(QColor(200, 30, 60));
        QCOMPARE(draw(indicator).pixelColor(side / 2, side / 6), QColor(200, 30, 60));
    }

    void goesRoundWhileItIsSeen()
    {
        QQuickWindow window;
        ActivityIndicator seen;
        ActivityIndicator hidden;
        ActivityIndicator nowhere;
        seen.setParentItem(window.contentItem());
        hidden.setParentItem(window.contentItem());
        hidden.setVisible(false);
        for (int spoke = 0; spoke <= ActivityIndicator::spokeCount; ++spoke)
            QTRY_COMPARE(brightestSpoke(seen), spoke % ActivityIndicator::spokeCount);
        QCOMPARE(brightestSpoke(hidden), 0);
        QCOMPARE(brightestSpoke(nowhere), 0);

        hidden.setVisible(true);
        QTRY_COMPARE(brightestSpoke(hidden), 2);
        seen.setVisible(false);
        const int stopped = brightestSpoke(seen);
        QTRY_COMPARE(brightestSpoke(hidden), 4);
        QCOMPARE(brightestSpoke(seen), stopped);
    }
};

QTEST_MAIN(ActivityIndicatorTest)
#include "tst_activity_indicator.moc"
