// Which channels are shown.
#include "NaiveChannelFilter.h"
#include "RandomChannels.h"

#include <QTest>

using namespace zeph;

namespace {

QList<qsizetype> rows(const ChannelFilter &filter)
{
    QList<qsizetype> rows;
    for (qsizetype place = 0; place < filter.count(); ++place)
        rows << filter.row(place);
    return rows;
}

QList<PlaylistEntry> channelsNamed(const QStringList &names)
{
    QList<PlaylistEntry> channels;
    for (const QString &name : names)
        channels << savedLink(name);
    return channels;
}

void chopCharacter(QString &text)
{
    if (!text.isEmpty())
        text.chop(text.back().isLowSurrogate() ? 2 : 1);
}

void addLocales()
{
    QTest::addColumn<QLocale>("locale");
    for (const QString &name : { u"C"_s, u"en_US"_s, u"tr_TR"_s, u"de_DE"_s, u"el_GR"_s })
        QTest::newRow(qPrintable(name)) << QLocale(name);
}

} // namespace

class ChannelFilterTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void anEmptyList()
    {
        ChannelFilter filter;
        QCOMPARE(filter.count(), 0);
        filter.setCriteria({ u"a"_s, u"DE"_s, u"News"_s });
        QCOMPARE(filter.count(), 0);
        QCOMPARE(filter.countryCodes(), QStringList());
        QCOMPARE(filter.categories(), QStringList());
        filter.setCriteria({});
        QCOMPARE(filter.count(), 0);
    }

    void withoutCriteriaAllAreShown()
    {
        const ChannelFilter filter(channelsNamed({ u"b"_s, u"a"_s, u""_s }));
        QCOMPARE(rows(filter), (QList<qsizetype> { 0, 1, 2 }));
    }

    void theOrderIsTheLists()
    {
        ChannelFilter filter(channelsNamed({ u"News b"_s, u"Sport"_s, u"news a"_s }));
        filter.setCriteria({ u"NEWS"_s, {}, {} });
        QCOMPARE(rows(filter), (QList<qsizetype> { 0, 2 }));
    }

    void aSearchLooksAtGroups()
    {
        ChannelFilter filter({ channel(u"CNN"_s, u"News"_s), channel(u"News 24"_s, {}),
            channel(u"Eurosport"_s, u"Sport"_s), channel(u"BBC"_s, u"UK NEWS"_s) });
        filter.setCriteria({ u"news"_s, {}, {} });
        QCOMPARE(rows(filter), (QList<qsizetype> { 0, 1, 3 }));
    }

    void namesAndGroupsAreNotOneText()
    {
        ChannelFilter filter({ channel(u"ab"_s, u"cd"_s), channel(u"cd"_s, u"ab"_s) });
        filter.setCriteria({ u"abcd"_s, {}, {} });
        QCOMPARE(filter.count(), 0);
        filter.setCriteria({ u"bc"_s, {}, {} });
        QCOMPARE(filter.count(), 0);
        filter.setCriteria({ u"dc"_s, {}, {} });
        QCOMPARE(filter.count(), 0);
    }

    void aCountryLeavesOutThoseWithoutOne()
    {
        ChannelFilter filter({ channel(u"a"_s, {}, u"DE"_s), channel(u"b"_s, {}),
            channel(u"c"_s, {}, u"AT"_s), channel(u"d"_s, {}, u"de"_s) });
        filter.setCriteria({ {}, u"DE"_s, {} });
        QCOMPARE(rows(filter), QList<qsizetype> { 0 });
        filter.setCriteria({ {}, u"FR"_s, {} });
        QCOMPARE(filter.count(), 0);
    }

    void aCategoryIsExact()
    {
        ChannelFilter filter({ channel(u"a"_s, u"News"_s), channel(u"b"_s, u"news"_s),
            channel(u"c"_s, u"News "_s), channel(u"d"_s, {}), channel(u"e"_s, u""_s) });
        filter.setCriteria({ {}, {}, u"News"_s });
        QCOMPARE(rows(filter), QList<qsizetype> { 0 });
        filter.setCriteria({ {}, {}, u"Sport"_s });
        QCOMPARE(filter.count(), 0);
    }

    void allThreeHaveToBeMet()
    {
        ChannelFilter filter(
            { channel(u"One"_s, u"News"_s, u"DE"_s), channel(u"One"_s, u"News"_s, u"AT"_s),
                channel(u"One"_s, u"Sport"_s, u"DE"_s), channel(u"Two"_s, u"News"_s, u"DE"_s) });
        filter.setCriteria({ u"one"_s, u"DE"_s, u"News"_s });
        QCOMPARE(rows(filter), QList<qsizetype> { 0 });
    }

    void countriesAreInTheOrderOfTheirNames()
    {
        const ChannelFilter filter({ channel(u"a"_s, {}, u"DE"_s), channel(u"b"_s, {}, u"AT"_s),
            channel(u"c"_s, {}), channel(u"d"_s, {}, u"DE"_s), channel(u"e"_s, {}, u"QQ"_s) });
        QCOMPARE(filter.countryCodes(), (QStringList { u"AT"_s, u"DE"_s, u"QQ"_s }));
    }

    void categoriesAreInThePlainOrder()
    {
        const ChannelFilter filter({ channel(u"a"_s, u"b"_s), channel(u"b"_s, u"\U0001f600"_s),
            channel(u"c"_s, {}), channel(u"d"_s, u"\uff21"_s), channel(u"e"_s, u"b"_s),
            channel(u"f"_s, u""_s), channel(u"g"_s, u"\u00e4"_s), channel(u"h"_s, u"C"_s) });
        QCOMPARE(filter.categories(),
            (QStringList { u"C"_s, u"b"_s, u"\u00e4"_s, u"\uff21"_s, u"\U0001f600"_s }));
    }

    void oddTexts_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("right to left") << u"\u202b\u0642\u0646\u0627\u0629 1\u202c"_s;
        QTest::newRow("combining") << u"Z\u0351\u036b\u0343\u036a\u0302\u036b"_s;
        QTest::newRow("zero width") << u"\u200b\u200d\ufeff\u2060"_s;
        QTest::newRow("byte-order mark first") << u"\ufeffNews"_s;
        QTest::newRow("null character") << u"a"_s + QChar(u'\0') + u'b';
        QTest::newRow("10,000 characters") << u"\u00c4b"_s.repeated(5'000);
        QTest::newRow("10,000 accents") << u"a"_s + u"\u0301"_s.repeated(10'000);
        QTest::newRow("last character") << u"\U0010ffff"_s;
    }
    void oddTexts()
    {
        QFETCH(QString, name);
        ChannelFilter filter(channelsNamed({ u"before"_s, name, u"behind"_s }));
        filter.setCriteria({ name, {}, {} });
        QCOMPARE(rows(filter), QList<qsizetype> { 1 });
        filter.setCriteria({ u"be"_s, {}, {} });
        QCOMPARE(rows(filter), (QList<qsizetype> { 0, 2 }));
    }

    void likeTheNaiveWay_data() { addLocales(); }
    void likeTheNaiveWay()
    {
        QFETCH(QLocale, locale);
        RandomChannels random(1);
        int found = 0;
        // More than one chunk, and the last one is not full.
        for (const int count : { 1, 50, 2'000, 20'000 }) {
            const QList<PlaylistEntry> channels = random.channels(count);
            const NaiveChannelFilter naive(channels, locale);
            for (int i = 0; i < 40; ++i) {
                ChannelFilter filter(channels, TextFolding(locale));
                const ChannelCriteria criteria = randomCriteria(random, channels);
                filter.setCriteria(criteria);
                QCOMPARE(rows(filter), naive.rows(criteria));
                found += filter.count() > 0;
            }
        }
        QVERIFY(found > 60);
    }

    void everyEditIsLikeANewSearch_data() { addLocales(); }
    void everyEditIsLikeANewSearch()
    {
        QFETCH(QLocale, locale);
        RandomChannels random(2);
        const QList<PlaylistEntry> channels = random.channels(20'000);
        const NaiveChannelFilter naive(channels, locale);
        ChannelFilter filter(channels, TextFolding(locale));
        ChannelCriteria criteria;
        for (int i = 0; i < 250; ++i) {
            edit(criteria, random);
            filter.setCriteria(criteria);
            QCOMPARE(rows(filter), naive.rows(criteria));
        }
    }

    void aLargeListIsRightAtOnce()
    {
        constexpr int count = 1'000'000;
        QList<PlaylistEntry> channels(count, channel(u"Sport"_s, u"Games"_s, u"AT"_s));
        channels[count - 1] = channel(u"News"_s, u"Info"_s, u"DE"_s);
        ChannelFilter filter(channels);
        QCOMPARE(filter.count(), count);
        QCOMPARE(filter.row(count - 1), count - 1);
        filter.setCriteria({ u"news"_s, {}, {} });
        QCOMPARE(rows(filter), QList<qsizetype> { count - 1 });
        filter.setCriteria({ {}, u"AT"_s, {} });
        QCOMPARE(filter.count(), count - 1);
        QCOMPARE(filter.row(count - 2), count - 2);
        QCOMPARE(filter.categories(), (QStringList { u"Games"_s, u"Info"_s }));
    }

    void aListMayGoBeforeItIsPrepared()
    {
        const QList<PlaylistEntry> channels(1'000'000, channel(u"Sport"_s, {}));
        for (int i = 0; i < 5; ++i)
            const ChannelFilter filter(channels);
        ChannelFilter last(channels);
        last.setCriteria({ u"sport"_s, {}, {} });
        QCOMPARE(last.count(), channels.size());
    }

private:
    static ChannelCriteria randomCriteria(
        RandomChannels &random, const QList<PlaylistEntry> &channels)
    {
        ChannelCriteria criteria;
        if (random.below(2) == 0) {
            criteria.search = random.text(3);
        } else {
            const int row = random.below(static_cast<int>(channels.size()));
            const auto name = channels.at(row).name().toStdU32String();
            const auto start =
                static_cast<std::size_t>(random.below(static_cast<int>(name.size()) + 1));
            criteria.search = QString::fromStdU32String(
                name.substr(start, static_cast<std::size_t>(random.below(6))))
                                  .toUpper();
        }
        if (random.below(3) == 0)
            criteria.countryCode = random.countryCode();
        if (random.below(3) == 0)
            criteria.category = random.category();
        return criteria;
    }

    // As a user does: mostly typing.
    static void edit(ChannelCriteria &criteria, RandomChannels &random)
    {
        switch (random.below(12)) {
        case 0:
            criteria.countryCode = random.countryCode();
            break;
        case 1:
            criteria.category = random.category();
            break;
        case 2:
            criteria = {};
            break;
        case 3:
            criteria.search.prepend(random.text(1));
            break;
        case 4:
        case 5:
        case 6:
            chopCharacter(criteria.search);
            break;
        default:
            criteria.search += random.text(1);
        }
    }
};

QTEST_GUILESS_MAIN(ChannelFilterTest)
#include "tst_channel_filter.moc"
