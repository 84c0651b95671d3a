// Which texts contain which.
#include "platform/TextSearch.h"

#include <QTest>

using namespace zeph;
using namespace Qt::StringLiterals;

namespace {

const QString composed = u"\u00e9"_s;
const QString decomposed = u"e\u0301"_s;
const QString dottedI = u"\u0130"_s;
const QString dotlessI = u"\u0131"_s;

QByteArray folded(const QString &text, const TextFolding &folding)
{
    std::string folded;
    folding.appendFolded(text.toUtf8(), folded);
    return QByteArray::fromStdString(folded);
}

bool contains(const QString &text, const QString &part, const QLocale &locale)
{
    const TextFolding folding(locale);
    return TextSearch(part, folding).isIn(folded(text, folding));
}

} // namespace

class TextSearchTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void containment_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("part");
        QTest::addColumn<bool>("isContained");
        QTest::newRow("all of it") << "News"
                                   << "News" << true;
        QTest::newRow("the beginning") << "News 24"
                                       << "news" << true;
        QTest::newRow("the end") << "BBC NEWS"
                                 << "news" << true;
        QTest::newRow("the middle") << "The News Channel"
                                    << "NEWS" << true;
        QTest::newRow("not") << "Sport"
                             << "news" << false;
        QTest::newRow("longer") << "New"
                                << "news" << false;
        QTest::newRow("blanks count") << "BBCNews"
                                      << "bbc news" << false;
        QTest::newRow("almost, then all") << "nenenews"
                                          << "news" << true;

        QTest::newRow("Greek") << u"\u0395\u0399\u0394\u0397\u03a3\u0395\u0399\u03a3"_s
                               << u"\u03b5\u03b9\u03b4\u03b7\u03c3\u03b5\u03b9\u03c2"_s << true;
        QTest::newRow("final sigma")
            << u"\u03c3\u03b5\u03b9\u03c2"_s << u"\u03c3\u03b5\u03b9\u03c3"_s << true;
        QTest::newRow("accents in Greek") << u"\u0395\u03b9\u03b4\u03ae\u03c3\u03b5\u03b9\u03c2"_s
                                          << u"\u03b5\u03b9\u03b4\u03b7"_s << false;
        QTest::newRow("Cyrillic") << u"\u041a\u0418\u041d\u041e"_s << u"\u043a\u0438\u043d\u043e"_s
                                  << true;
        QTest::newRow("Cyrillic breve") << u"\u0419"_s << u"\u0438"_s << false;
        QTest::newRow("sharp s") << u"Stra\u00dfe"_s << "STRASSE" << true;
        QTest::newRow("capital sharp s") << u"STRA\u1e9eE"_s << "strasse" << true;
        QTest::newRow("two s") << "STRASSE" << u"stra\u00dfe"_s << true;
        QTest::newRow("ligature") << u"\ufb01lm"_s << "Film" << true;

        QTest::newRow("accents are kept") << u"G\u00e9n\u00e9ral"_s << "General" << false;
        QTest::newRow("accent looked for") << "General" << u"G\u00e9n"_s << false;
        QTest::newRow("accent in capitals")
            << u"G\u00c9N\u00c9RAL"_s << u"g\u00e9n\u00e9"_s << true;
        QTest::newRow("decomposed text") << u"caf"_s + decomposed << u"CAF"_s + composed << true;
        QTest::newRow("decomposed part") << u"caf"_s + composed << u"CAF"_s + decomposed << true;
        QTest::newRow("decomposed capital") << u"CAFE\u0301"_s << u"caf"_s + composed << true;
        QTest::newRow("half a composed letter") << u"caf"_s + composed << "cafe" << false;
        QTest::newRow("half a decomposed letter") << u"caf"_s + decomposed << "cafe" << false;
        QTest::newRow("half a letter, then a whole one") << decomposed + u" e"_s << "e" << true;
        QTest::newRow("before half a letter") << decomposed + u"n"_s << "n" << true;
        QTest::newRow("a pair that is never composed") << u"x\u0301"_s << "x" << false;
        QTest::newRow("such a pair") << u"ax\u0301b"_s << u"X\u0301"_s << true;
        QTest::newRow("one of two accents") << u"a\u0323\u0301"_s << u"a\u0323"_s << false;
        QTest::newRow("accents in another order")
            << u"x\u0301\u0323"_s << u"x\u0323\u0301"_s << true;
        QTest::newRow("an accent alone") << u"x\u0301"_s << u"\u0301"_s << false;
        QTest::newRow("an accent at the start") << u"\u0301x"_s << u"\u0301"_s << true;
        QTest::newRow("Hangul, composed") << u"\ud55c\uad6d"_s << u"\u1112\u1161\u11ab"_s << true;
        QTest::newRow("Hangul, part of a syllable") << u"\ud55c\uad6d"_s << u"\ud558"_s << false;
        QTest::newRow("Arabic") << u"\u0623\u062e\u0628\u0627\u0631"_s << u"\u062e\u0628"_s << true;
        QTest::newRow("beyond 16 bits")
            << u"\U00010400\U0001f600"_s << u"\U00010428\U0001f600"_s << true;
        QTest::newRow("zero width counts") << u"a\u200bb"_s << "ab" << false;
        QTest::newRow("an emoji's form") << u"\u2764\ufe0f"_s << u"\u2764"_s << true;
        QTest::newRow("null character") << QString(QChar()) + u"a"_s << QString(QChar()) << true;

        QTest::newRow("I") << "TITLE"
                           << "title" << true;
        QTest::newRow("dotted I keeps its dot") << dottedI + u"stanbul"_s << "istanbul" << false;
        QTest::newRow("with its dot") << dottedI + u"stanbul"_s << u"i\u0307stanbul"_s << true;
        QTest::newRow("dotless i is another") << "ISPARTA" << dotlessI + u"sparta"_s << false;
    }
    void containment()
    {
        QFETCH(QString, text);
        QFETCH(QString, part);
        for (const QLocale &locale :
            { QLocale::c(), QLocale(QLocale::English, QLocale::UnitedStates),
                QLocale(QLocale::German), QLocale(QLocale::Greek) })
            QTEST(contains(text, part, locale), "isContained");
    }

    void turkic_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("part");
        QTest::addColumn<bool>("isContained");
        QTest::newRow("dotted") << dottedI + u"stanbul"_s << "istanbul" << true;
        QTest::newRow("dotted, to capitals") << "istanbul" << dottedI + u"STANBUL"_s << true;
        QTest::newRow("dotted, decomposed") << u"I\u0307stanbul"_s << "istanbul" << true;
        QTest::newRow("dotless") << "ISPARTA" << dotlessI + u"sparta"_s << true;
        QTest::newRow("dotless, to capitals") << dotlessI + u"sparta"_s << "ISPARTA" << true;
        QTest::newRow("dotless is not dotted") << "ISPARTA"
                                               << "isparta" << false;
        QTest::newRow("dotted is not dotless") << "istanbul"
                                               << "ISTANBUL" << false;
        QTest::newRow("other letters")
            << u"T\u00dcRK\u00c7E KANAL"_s << u"t\u00fcrk\u00e7e kanal"_s << true;
        QTest::newRow("with others that are not ASCII")
            << u"\u00c7IKI\u015e"_s << u"\u00e7\u0131k\u0131\u015f"_s << true;
    }
    void turkic()
    {
        QFETCH(QString, text);
        QFETCH(QString, part);
        QTEST(contains(text, part, QLocale(QLocale::Turkish, QLocale::Turkey)), "isContained");
        QTEST(contains(text, part, QLocale(QLocale::Azerbaijani)), "isContained");
    }

    void theUsersLanguageIsTheDefault()
    {
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::Turkish, QLocale::Turkey));
        const TextFolding turkish;
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        const TextFolding english;
        QLocale::setDefault(before);
        QCOMPARE(folded(u"I"_s, turkish), dotlessI.toUtf8());
        QCOMPARE(folded(u"I"_s, english), QByteArray("i"));
    }

    void nothingIsFoundNowhere()
    {
        const TextFolding folding;
        QVERIFY(TextSearch().isEmpty());
        QVERIFY(TextSearch({}, folding).isEmpty());
        QVERIFY(!TextSearch({}, folding).isIn("a"));
        QVERIFY(!TextSearch(u"a"_s, folding).isIn({}));
    }

    void joinedTexts()
    {
        const TextFolding folding;
        const QByteArray texts = QByteArrayLiteral("ne\xffws new\xffs news\xff\xcc\x81x");
        const auto place = [&](const QString &part) -> std::ptrdiff_t {
            const char *const found = TextSearch(part, folding).find(texts.begin(), texts.end());
            return found ? found - texts.begin() : -1;
        };
        QCOMPARE(place(u"news"_s), 12);
        QCOMPARE(place(u"ne"_s), 0);
        QCOMPARE(place(u"ews "_s), -1);
        QCOMPARE(place(u"\u0301"_s), 17);
        QCOMPARE(place(u"s"_s), 4);
    }

    // However the byte is chosen that is looked for first.
    void expectationsChangeNothing()
    {
        const TextFolding folding;
        const QString part = u"abca"_s;
        for (int rare = 0; rare < 4; ++rare) {
            TextSearch::ByteCounts counts;
            counts.fill(10);
            counts[static_cast<unsigned char>(part.at(rare).toLatin1())] = 1;
            TextSearch search(part, folding);
            search.expect(counts);
            QVERIFY(search.isIn("abca"));
            QVERIFY(search.isIn("ababcabc"));
            QVERIFY(search.isIn("zzabca"));
            QVERIFY(!search.isIn("abcb"));
            QVERIFY(!search.isIn("abc"));
            QVERIFY(!search.isIn("bca"));
        }
        TextSearch none;
        none.expect({});
        QVERIFY(!none.isIn("a"));
    }

    void longTexts()
    {
        const TextFolding folding;
        const QString text(100'000, QLatin1Char('A'));
        for (const int size : { 1, 31, 32, 33, 34, 1000, 100'000 }) {
            const QString part(size, QLatin1Char('a'));
            const QByteArray foldedText = folded(text, folding);
            QVERIFY(TextSearch(part, folding).isIn(foldedText));
            QVERIFY(!TextSearch(part + u"b"_s, folding).isIn(foldedText));
            QVERIFY(!TextSearch(u"b"_s + part, folding).isIn(foldedText));
            QVERIFY(TextSearch(part + u"b"_s, folding).isIn(foldedText + 'b'));
            // Only the last one is whole.
            const QByteArray accented = QByteArray(size, 'a') + "\xcc\xb1" + QByteArray(size, 'a');
            QCOMPARE(TextSearch(part, folding).find(accented.begin(), accented.end()),
                accented.begin() + size + 2);
        }
    }

    void narrower_data()
    {
        QTest::addColumn<QString>("now");
        QTest::addColumn<QString>("before");
        QTest::addColumn<bool>("isNarrower");
        QTest::newRow("a letter more") << "new"
                                       << "ne" << true;
        QTest::newRow("in other case") << "NEWS"
                                       << "new" << true;
        QTest::newRow("a letter before") << "anew"
                                         << "new" << true;
        QTest::newRow("the same") << "new"
                                  << "New" << true;
        QTest::newRow("a letter less") << "ne"
                                       << "new" << false;
        QTest::newRow("another letter") << "nex"
                                        << "new" << false;
        QTest::newRow("an accent more") << u"cafe"_s + u"\u0301"_s << "cafe" << false;
        QTest::newRow("an accent more that stays apart") << u"x\u0301"_s << "x" << false;
        QTest::newRow("a letter after an accent") << decomposed + u"s"_s << decomposed << true;
        QTest::newRow("nothing before") << "a"
                                        << "" << false;
    }
    void narrower()
    {
        QFETCH(QString, now);
        QFETCH(QString, before);
        const TextFolding folding;
        QTEST(TextSearch(now, folding).isNarrowerThan(TextSearch(before, folding)), "isNarrower");
    }
};

QTEST_GUILESS_MAIN(TextSearchTest)
#include "tst_text_search.moc"
