// The path of an address, its name and its extension.
#include "sources/UrlPath.h"

#include <QTest>

using namespace zeph;

namespace {

QUrl url(const char *text)
{
    return QUrl(QString::fromUtf8(text));
}

} // namespace

class UrlPathTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void splitsThePath();
    void findsTheSegmentAfterAKeyword();
    void decodesTheLastComponent();
    void refusesALastComponentThatIsNoText_data();
    void refusesALastComponentThatIsNoText();
    void splitsOffTheExtension_data();
    void splitsOffTheExtension();
    void comparesDomains();
    void readsQueryValues();
    void trims();
};

void UrlPathTest::splitsThePath()
{
    QCOMPARE(pathSegments(url("http://h")), QStringList());
    QCOMPARE(pathSegments(url("http://h/")), QStringList());
    QCOMPARE(pathSegments(url("http://h//a///b/?c/d#e/f")),
        QStringList({ QStringLiteral("a"), QStringLiteral("b") }));
    // An encoded slash is part of a segment.
    QCOMPARE(pathSegments(url("http://h/a%2Fb/%C3%BC")),
        QStringList({ QStringLiteral("a/b"), QStringLiteral("\u00fc") }));
    QCOMPARE(pathSegments(url("http://h/%FF")), QStringList(QStringLiteral("%FF")));
    QCOMPARE(pathSegments(url("a/b")), QStringList({ QStringLiteral("a"), QStringLiteral("b") }));
}

void UrlPathTest::findsTheSegmentAfterAKeyword()
{
    const QStringList keywords { QStringLiteral("x"), QStringLiteral("y") };
    QCOMPARE(pathSegmentAfter(url("http://h/a/y/b/x/c"), keywords), QStringLiteral("b"));
    QCOMPARE(pathSegmentAfter(url("http://h/x/y/c"), keywords), QStringLiteral("y"));
    QVERIFY(!pathSegmentAfter(url("http://h/a/x"), keywords));
    QVERIFY(!pathSegmentAfter(url("http://h/X/b"), keywords));
    QVERIFY(!pathSegmentAfter(url("http://h"), keywords));
    QVERIFY(!pathSegmentAfter(url("http://h/x/a"), {}));
}

void UrlPathTest::decodesTheLastComponent()
{
    QCOMPARE(decodedLastPathComponent(url("http://h/a/my%20show.m3u8?b/c")),
        QStringLiteral("my show.m3u8"));
    QCOMPARE(decodedLastPathComponent(url("http://h/a/b/")), QStringLiteral("b"));
    QCOMPARE(decodedLastPathComponent(url("http://h/%D0%96")), QStringLiteral("\u0416"));
    QCOMPARE(decodedLastPathComponent(url("http://h/100%2525")), QStringLiteral("100%25"));
    QCOMPARE(decodedLastPathComponent(url("http://h/")), QString());
    QCOMPARE(decodedLastPathComponent(url("http://h")), QString());
}

void UrlPathTest::refusesALastComponentThatIsNoText_data()
{
    QTest::addColumn<QUrl>("address");
    QTest::newRow("a byte of no text") << url("http://h/a%FFb");
    QTest::newRow("a character cut short") << url("http://h/a%C3");
    QTest::newRow("only the start of a character") << url("http://h/%E2%80");
    QTest::newRow("a surrogate") << url("http://h/%ED%A0%80");
    QTest::newRow("an overlong form") << url("http://h/%C0%80");
}

void UrlPathTest::refusesALastComponentThatIsNoText()
{
    QFETCH(QUrl, address);
    QVERIFY(!decodedLastPathComponent(address));
}

void UrlPathTest::splitsOffTheExtension_data()
{
    QTest::addColumn<QUrl>("address");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("extension");
    QTest::newRow("plain") << url("http://h/a/list.M3u?x.y#z.w") << "list"
                           << "M3u";
    QTest::newRow("two dots") << url("file:///a/b.c.m3u") << "b.c"
                              << "m3u";
    QTest::newRow("escaped") << url("http://h/my%20list%2Em3u") << "my list"
                             << "m3u";
    QTest::newRow("slash at the end") << url("http://h/list.m3u/") << "list"
                                      << "m3u";
    QTest::newRow("none") << url("http://h.m3u/list") << "list"
                          << "";
    QTest::newRow("dot at the end") << url("http://h/list.") << "list"
                                    << "";
    QTest::newRow("dot at the start") << url("http://h/.m3u") << ".m3u"
                                      << "";
    QTest::newRow("in a folder") << url("http://h/a.m3u/list") << "list"
                                 << "";
    QTest::newRow("no path") << url("http://h.m3u") << ""
                             << "";
    QTest::newRow("no address") << QUrl() << ""
                                << "";
}

void UrlPathTest::splitsOffTheExtension()
{
    QFETCH(const QUrl, address);
    QTEST(lastPathComponentWithoutExtension(address), "name");
    QTEST(pathExtension(address), "extension");
}

void UrlPathTest::comparesDomains()
{
    constexpr QLatin1StringView domain("example.org");
    QVERIFY(isOnDomain(url("http://example.org"), domain));
    QVERIFY(isOnDomain(url("http://EXAMPLE.org:80/x"), domain));
    QVERIFY(isOnDomain(url("http://a.b.example.org"), domain));
    QVERIFY(!isOnDomain(url("http://anexample.org"), domain));
    QVERIFY(!isOnDomain(url("http://example.org.net"), domain));
    QVERIFY(!isOnDomain(url("http://org"), domain));
    QVERIFY(!isOnDomain(url("/example.org"), domain));
    QVERIFY(!isOnDomain(QUrl(), domain));
}

void UrlPathTest::readsQueryValues()
{
    const QUrl address = url("http://h/?b=1&a=%202%20&a=3&c&d=%20&e=%26%3D+&f");
    QCOMPARE(queryValue(address, QStringLiteral("a")), QStringLiteral("2"));
    QCOMPARE(queryValue(address, QStringLiteral("e")), QStringLiteral("&=+"));
    for (const auto &name : { u"c", u"d", u"f", u"A", u"" })
        QVERIFY(!queryValue(address, QString::fromUtf16(name)));
    QVERIFY(!queryValue(url("http://h"), QStringLiteral("a")));
}

void UrlPathTest::trims()
{
    QCOMPARE(
        trimmedOrNothing(QStringLiteral("\t\u00a0a b\u3000\r\n\u2029")), QStringLiteral("a b"));
    QVERIFY(!trimmedOrNothing(QStringLiteral(" \u0085\u2028")));
    QVERIFY(!trimmedOrNothing(QString()));
    QCOMPARE(trimmedText(QStringLiteral("\ufeff a\ufeffb \ufeff")), QStringLiteral("a\ufeffb"));
    QCOMPARE(trimmedText(QStringLiteral(" \ufeff")), QString());
    QCOMPARE(trimmedText(QStringLiteral("a")), QStringLiteral("a"));
}

QTEST_GUILESS_MAIN(UrlPathTest)
#include "tst_url_path.moc"
