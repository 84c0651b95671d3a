// What regions are called, and their order.
#include "platform/RegionNames.h"

#include <QTest>

using namespace zeph;
using namespace Qt::StringLiterals;

class RegionNamesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void names_data()
    {
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("name");
        QTest::newRow("Austria") << "AT"
                                 << "Austria";
        QTest::newRow("Germany") << "DE"
                                 << "Germany";
        QTest::newRow("accents") << "CI" << u"C\u00f4te d\u2019Ivoire"_s;
        QTest::newRow("another code of the same") << "UK"
                                                  << "United Kingdom";
        QTest::newRow("a union") << "EU"
                                 << "European Union";
        QTest::newRow("small letters") << "at"
                                       << "Austria";
        QTest::newRow("no region") << "QQ"
                                   << "QQ";
        QTest::newRow("no region, small") << "qq"
                                          << "qq";
        QTest::newRow("digits") << "42"
                                << "42";
        QTest::newRow("other letters") << u"\u0130\u0131"_s << u"\u0130\u0131"_s;
        QTest::newRow("one character of two units") << u"\U0001f600"_s << u"\U0001f600"_s;
        QTest::newRow("a locale") << "_DE"
                                  << "_DE";
        QTest::newRow("a keyword") << "@x"
                                   << "@x";
        QTest::newRow("one letter") << "D"
                                    << "D";
        QTest::newRow("three letters") << "DEU"
                                       << "DEU";
        QTest::newRow("nothing") << ""
                                 << "";
    }
    void names()
    {
        QFETCH(QString, code);
        QTEST(regionName(code), "name");
    }

    void namesAreEnglishInAnyLocale()
    {
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        const QByteArray language = qgetenv("LC_ALL");
        qputenv("LC_ALL", "de_DE.UTF-8");
        QCOMPARE(regionName(u"DE"_s), u"Germany"_s);
        qputenv("LC_ALL", language);
        QLocale::setDefault(before);
    }

    void theOrderIsThatOfNames()
    {
        QCOMPARE(sortedByRegionName({ u"DE"_s, u"AT"_s }), (QStringList { u"AT"_s, u"DE"_s }));
        // Algeria, Åland Islands, Albania: the accent comes second.
        QCOMPARE(sortedByRegionName({ u"DZ"_s, u"AL"_s, u"AX"_s }),
            (QStringList { u"AX"_s, u"AL"_s, u"DZ"_s }));
        // By letters "Côte d’Ivoire" would be behind "Cyprus".
        QCOMPARE(sortedByRegionName({ u"CY"_s, u"CI"_s, u"CN"_s }),
            (QStringList { u"CN"_s, u"CI"_s, u"CY"_s }));
    }

    void codesWithoutANameAreNames()
    {
        QCOMPARE(sortedByRegionName({ u"ZW"_s, u"QQ"_s, u"PT"_s, u"RO"_s }),
            (QStringList { u"PT"_s, u"QQ"_s, u"RO"_s, u"ZW"_s }));
        // "qm" is between "QL" and "QN", although small letters come behind capitals.
        QCOMPARE(sortedByRegionName({ u"QN"_s, u"qm"_s, u"QL"_s }),
            (QStringList { u"QL"_s, u"qm"_s, u"QN"_s }));
    }

    void theSameNamesAreInTheOrderOfTheirCodes()
    {
        const QStringList sorted { u"GB"_s, u"UK"_s, u"US"_s };
        QCOMPARE(sortedByRegionName({ u"US"_s, u"UK"_s, u"GB"_s }), sorted);
        QCOMPARE(sortedByRegionName({ u"UK"_s, u"GB"_s, u"US"_s }), sorted);
        QCOMPARE(sortedByRegionName({ u"qq"_s, u"QQ"_s }), (QStringList { u"QQ"_s, u"qq"_s }));
    }

    void nothingToSort() { QCOMPARE(sortedByRegionName({}), QStringList()); }
};

QTEST_GUILESS_MAIN(RegionNamesTest)
#include "tst_region_names.moc"
