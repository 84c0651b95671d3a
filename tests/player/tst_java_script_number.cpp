// Numbers as scripts write them.
#include "player/JavaScriptNumber.h"

#include <QRandomGenerator>
#include <QTest>

#include <bit>
#include <cmath>
#include <limits>

using namespace zeph;

class JavaScriptNumberTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void text_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("text");
        QTest::newRow("whole") << 5.0 << QStringLiteral("5.0");
        QTest::newRow("negative") << -20.0 << QStringLiteral("-20.0");
        QTest::newRow("zero") << 0.0 << QStringLiteral("0.0");
        QTest::newRow("fraction") << 0.5 << QStringLiteral("0.5");
        QTest::newRow("inexact") << 0.1 + 0.2 << QStringLiteral("0.30000000000000004");
        QTest::newRow("round thousands") << 100000.0 << QStringLiteral("100000.0");
        QTest::newRow("small") << 0.0001 << QStringLiteral("0.0001");
        QTest::newRow("smaller") << 0.00001 << QStringLiteral("1e-05");
        QTest::newRow("large") << 1e15 << QStringLiteral("1000000000000000.0");
        QTest::newRow("larger") << 1e300 << QStringLiteral("1e+300");
    }

    void text()
    {
        QFETCH(double, value);
        QFETCH(QString, text);
        QCOMPARE(javaScriptNumber(value), text);
    }

    void readsBackAsItself()
    {
        QRandomGenerator random(3);
        for (int i = 0; i < 100000; ++i) {
            const double value = std::bit_cast<double>(random.generate64());
            if (std::isfinite(value))
                QCOMPARE(javaScriptNumber(value).toDouble(), value);
        }
    }
};

QTEST_GUILESS_MAIN(JavaScriptNumberTest)
#include "tst_java_script_number.moc"
