// The parser and the naive one read all kinds of lists alike.
#include "sources/AwkwardLists.h"
#include "sources/NaivePlaylistParser.h"
#include "sources/PlaylistParser.h"

#include <QTest>

using namespace zeph;
using namespace zeph::tests;

namespace {

QByteArray described(const NaiveEntry &entry)
{
    const auto text = [](const std::optional<QString> &value) {
        return value ? '[' + value->toUtf8() + ']' : QByteArray("none");
    };
    return text(entry.name) + ' ' + entry.url.toEncoded() + ' '
        + (entry.logoURL ? '[' + entry.logoURL->toEncoded() + ']' : QByteArray("none")) + ' '
        + text(entry.groupTitle) + ' ' + text(entry.countryCode);
}

NaiveEntry withoutId(const PlaylistEntry &entry)
{
    return { entry.name(), entry.url(), entry.logoURL(), entry.groupTitle(), entry.countryCode() };
}

} // namespace

class PlaylistParserReferenceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsLikeTheNaiveParser_data();
    void readsLikeTheNaiveParser();
};

void PlaylistParserReferenceTest::readsLikeTheNaiveParser_data()
{
    QTest::addColumn<quint32>("seed");
    QTest::addColumn<int>("count");
    QTest::addColumn<QUrl>("base");
    QTest::newRow("web") << 1U << 100'000 << QUrl(QStringLiteral("http://h/list/p.m3u?q#f"));
    QTest::newRow("web, no path") << 2U << 20'000 << QUrl(QStringLiteral("https://h"));
    QTest::newRow("file") << 3U << 20'000
                          << QUrl::fromLocalFile(QStringLiteral("/media/\u00fc/my list.m3u"));
}

void PlaylistParserReferenceTest::readsLikeTheNaiveParser()
{
    QFETCH(quint32, seed);
    QFETCH(int, count);
    QFETCH(QUrl, base);
    QRandomGenerator random(seed);
    int entryCount = 0;
    int logoCount = 0;
    int groupCount = 0;
    int countryCount = 0;
    for (int i = 0; i < count; ++i) {
        const QByteArray list = awkwardList(random);
        QByteArrayList expected;
        for (const NaiveEntry &entry : parseNaively(list, base))
            expected += described(entry);
        QByteArrayList actual;
        for (const PlaylistEntry &entry :
            PlaylistParser::parse(PlaylistText::fromBytes(list), base)) {
            actual += described(withoutId(entry));
            ++entryCount;
            logoCount += entry.logoURL().has_value();
            groupCount += entry.groupTitle().has_value();
            countryCount += entry.countryCode().has_value();
            QVERIFY2(entry.url().isValid() && !entry.url().scheme().isEmpty(),
                list.toPercentEncoding("\n \""));
        }
        if (actual != expected) {
            qWarning().noquote() << "list" << i << '\n'
                                 << list.toPercentEncoding(" \n\",:/?#=") << "\nexpected\n"
                                 << expected.join('\n') << "\nactual\n"
                                 << actual.join('\n');
        }
        QCOMPARE(actual, expected);
    }
    // The lists were not all unreadable.
    QVERIFY(entryCount > count);
    QVERIFY(logoCount > count / 100);
    QVERIFY(groupCount > count / 100);
    QVERIFY(countryCount > count / 100);
}

QTEST_GUILESS_MAIN(PlaylistParserReferenceTest)
#include "tst_playlist_parser_reference.moc"
