// Symbols as they come out on the screen.
#include "surface/SystemImage.h"

#include <QDirIterator>
#include <QImage>
#include <QPainter>
#include <QTest>

using namespace zeph;

namespace {

constexpr int side = 40;

struct Drawn {
    QImage image;

    int inkedPixels() const
    {
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                count += image.pixelColor(x, y).alpha() > 127;
        }
        return count;
    }
};

Drawn draw(SystemImage &symbol, int pixels = side)
{
    symbol.setSize(QSizeF(side, side));
    Drawn drawn { QImage(pixels, pixels, QImage::Format_ARGB32_Premultiplied) };
    drawn.image.fill(Qt::transparent);
    QPainter painter(&drawn.image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(double(pixels) / side, double(pixels) / side);
    symbol.paint(&painter);
    return drawn;
}

} // namespace

class SystemImageTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everySymbolIsDrawn_data()
    {
        QTest::addColumn<QString>("name");
        QDirIterator files(QStringLiteral(":/zeph/symbols"), QDir::Files);
        while (files.hasNext()) {
            files.next();
            const QString name = files.fileInfo().completeBaseName();
            QTest::newRow(qPrintable(name)) << name;
        }
    }
    void everySymbolIsDrawn()
    {
        QFETCH(QString, name);
        SystemImage symbol;
        symbol.setName(name);
        const int inked = draw(symbol).inkedPixels();
        QVERIFY2(inked > 40 && inked < side * side * 9 / 10, qPrintable(QString::number(inked)));
    }

    void thoseWithoutADrawingInTheSetAreOurs()
    {
        for (const char *name : { "network", "rectangle.portrait", "rectangle.portrait.fill" })
            QVERIFY(QFile::exists(
                QStringLiteral(":/zeph/symbols/%1.svg").arg(QLatin1StringView(name))));
    }

    void hasTheColourThatItIsGiven()
    {
        SystemImage symbol;
        symbol.setName(QStringLiteral("stop.fill"));
        symbol.setColor(QColor(200, 30, 60));
        QCOMPARE(draw(symbol).image.pixelColor(side / 2, side / 2), QColor(200, 30, 60));
        symbol.setColor(QColor(0, 0, 0, 128));
        QCOMPARE(draw(symbol).image.pixelColor(side / 2, side / 2).alpha(), 128);
    }

    void isDrawnAnewForEachScale()
    {
        SystemImage symbol;
        symbol.setName(QStringLiteral("rectangle.portrait"));
        const int partly = [](const QImage &image) {
            int count = 0;
            for (int x = 0; x < image.width(); ++x) {
                const int alpha = image.pixelColor(x, image.height() / 2).alpha();
                count += alpha > 10 && alpha < 245;
            }
            return count;
        }(draw(symbol, 4 * side).image);
        QVERIFY2(partly <= 4, qPrintable(QString::number(partly))); // One for each edge.
    }

    void weightsDiffer()
    {
        SystemImage symbol;
        symbol.setName(QStringLiteral("play.rectangle"));
        const int regular = draw(symbol).inkedPixels();
        symbol.setWeight(SystemImage::Weight::Semibold);
        QVERIFY(draw(symbol).inkedPixels() > regular);
        symbol.setWeight(SystemImage::Weight::UltraLight);
        const int light = draw(symbol, 4 * side).inkedPixels();
        symbol.setWeight(SystemImage::Weight::Regular);
        QVERIFY(light * 3 < draw(symbol, 4 * side).inkedPixels() * 2);
        QVERIFY(light > 0);
    }

    void anUnknownNameIsTold()
    {
        SystemImage symbol;
        QTest::ignoreMessage(QtWarningMsg, "There is no symbol named \"play.full\"");
        symbol.setName(QStringLiteral("play.full"));
        QCOMPARE(draw(symbol).inkedPixels(), 0);
        symbol.setName(QString());
        QCOMPARE(draw(symbol).inkedPixels(), 0);
    }

    void itsSizeGoesWithThatOfTheText()
    {
        SystemImage symbol;
        symbol.setPointSize(12);
        QCOMPARE(symbol.implicitWidth(), 15);
        QCOMPARE(symbol.implicitHeight(), 15);
    }
};

QTEST_MAIN(SystemImageTest)
#include "tst_system_image.moc"
