// What is read from lists.
#include "sources/AwkwardLists.h"
#include "sources/PlaylistParser.h"

#include <QSet>
#include <QTest>

using namespace zeph;

namespace {

const QUrl base(QStringLiteral("http://h/list/p.m3u"));

QList<PlaylistEntry> parse(const QByteArray &bytes)
{
    return PlaylistParser::parse(PlaylistText::fromBytes(bytes), base);
}

/// The entry that a metadata line makes of the address that follows it.
PlaylistEntry entryFor(const QByteArray &metadata)
{
    return parse(metadata + "\nhttp://h/a.m3u8").value(0);
}

QByteArrayList addressesOf(const QList<PlaylistEntry> &entries)
{
    QByteArrayList addresses;
    for (const PlaylistEntry &entry : entries)
        addresses += QByteArray(entry.address().data(), entry.address().size());
    return addresses;
}

QStringList namesOf(const QList<PlaylistEntry> &entries)
{
    QStringList names;
    for (const PlaylistEntry &entry : entries)
        names += entry.name();
    return names;
}

} // namespace

class PlaylistParserTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsAChannel();
    void findsTheTitle_data();
    void findsTheTitle();
    void findsAttributes_data();
    void findsAttributes();
    void findsTheCountry_data();
    void findsTheCountry();
    void readsLogosAsWritten_data();
    void readsLogosAsWritten();
    void namesBareAddresses_data();
    void namesBareAddresses();
    void resolvesAddresses_data();
    void resolvesAddresses();
    void acceptsAnyNewline_data();
    void acceptsAnyNewline();
    void replacesPendingMetadata();
    void keepsPendingMetadata();
    void usesMetadataOnce();
    void dropsTrailingMetadata();
    void keepsDuplicates();
    void sharesGroups();
    void readsLatin1();
    void readsStrings();
    void ignoresByteOrderMarks();
    void givesNothingForNothing_data();
    void givesNothingForNothing();
    void copesWithHugeLines();
    void copesWithMutilatedLists();
};

void PlaylistParserTest::readsAChannel()
{
    const auto entries = parse("#EXTM3U\n"
                               "#EXTINF:-1 tvg-name=\"A\" tvg-logo=\"http://x/l.png\" "
                               "group-title=\"News\" tvg-country=\"tr\",A TV\n"
                               "http://h/a.m3u8\n");
    QCOMPARE(entries.size(), 1);
    const PlaylistEntry &entry = entries.constFirst();
    QVERIFY(!entry.id().isNull());
    QCOMPARE(entry.name(), QStringLiteral("A TV"));
    QCOMPARE(entry.url(), QUrl(QStringLiteral("http://h/a.m3u8")));
    QCOMPARE(entry.logoURL(), QUrl(QStringLiteral("http://x/l.png")));
    QCOMPARE(entry.groupTitle(), QStringLiteral("News"));
    QCOMPARE(entry.countryCode(), QStringLiteral("TR"));
}

void PlaylistParserTest::findsTheTitle_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("name");
    const auto row = [](const char *line, const char *name) {
        QTest::newRow(line) << QByteArray(line) << QString::fromUtf8(name);
    };
    row("#EXTINF:-1 tvg-id=\"x\",News 24", "News 24");
    row("#EXTINF:-1, \tNews 24\u3000", "News 24");
    row("#EXTINF:-1,News, Sport", "News, Sport");
    row("#EXTINF:-1,,News", ",News");
    row("#EXTINF:,News", "News");
    row("#EXTINF:-1 tvg-name=\"B, C\",News", "C\",News");
    row("#EXTINF:-1", "#EXTINF:-1");
    row("  #EXTINF:-1 tvg-name=\"B\"  ", "#EXTINF:-1 tvg-name=\"B\"");
    // Nothing after the comma is no title, and the line is one; blanks are a blank title.
    row("#EXTINF:-1 tvg-name=\"B\" ,", "#EXTINF:-1 tvg-name=\"B\"");
    row("#EXTINF:-1 tvg-name=\"B\", ", "B");
    row("#EXTINF:-1 tvg-name=\"B\",\t\u00a0", "B");
    row("#EXTINF:-1, ", "a.m3u8");
    row("#EXTINF:-1 tvg-name=\" \", ", "a.m3u8");
    row("#EXTINF:-1,\u0416\U0001f4fa", "\u0416\U0001f4fa");
    // Not such a line.
    row("#extinf:-1,News", "a.m3u8");
    row("# EXTINF:-1,News", "a.m3u8");
    row("#EXTINF -1,News", "a.m3u8");
}

void PlaylistParserTest::findsTheTitle()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, name);
    QCOMPARE(entryFor(line).name(), name);
}

void PlaylistParserTest::findsAttributes_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<std::optional<QString>>("group");
    const auto row = [](const char *line, const char *group) {
        QTest::newRow(line) << QByteArray(line)
                            << (group ? std::optional(QString::fromUtf8(group)) : std::nullopt);
    };
    row("#EXTINF:-1 group-title=\"News\",A", "News");
    row("#EXTINF:-1 GROUP-Title=\"News\",A", "News");
    row("#EXTINF:-1 group-title=\" \tNews 24\u2003\",A", "News 24");
    row("#EXTINF:-1 group-title=\"\",A", nullptr);
    row("#EXTINF:-1 group-title=\" \u00a0\",A", nullptr);
    row("#EXTINF:-1 group-title=News,A", nullptr);
    row("#EXTINF:-1 group-title='News',A", nullptr);
    row("#EXTINF:-1 group-title =\"News\",A", nullptr);
    row("#EXTINF:-1 group-title= \"News\",A", nullptr);
    row("#EXTINF:-1 group-title=\"News,A", nullptr);
    row("#EXTINF:-1 group-title=\"\" group-title=\"News\",A", nullptr);
    row("#EXTINF:-1 group-title=\"a\" group-title=\"b\",A", "a");
    row("#EXTINF:-1 x-group-title=\"News\",A", "News");
    row("#EXTINF:-1,A group-title=\"News\"", "News");
    row("#EXTINF:-1 tvg-name=\"a group-title=\"News\",A", "News");
    row("#EXTINF:-1 group-title=\"a\\\"b\",A", "a\\");
    row("#EXTINF:group-title=\"News\"", "News");
    row("#EXTINF:-1 group-title=\"a=\"b\"", "a=");
    row("#EXTINF:-1 \"=\"=\"\"\"", nullptr);
}

void PlaylistParserTest::findsAttributes()
{
    QFETCH(QByteArray, line);
    QFETCH(std::optional<QString>, group);
    QCOMPARE(entryFor(line).groupTitle(), group);
}

void PlaylistParserTest::findsTheCountry_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QString>("country");
    const auto row = [](const char *attributes, const char *country) {
        QTest::newRow(attributes) << QByteArray(attributes) << QString::fromUtf8(country);
    };
    row("tvg-country=\"us;de\"", "US");
    row("tvg-country=\"de,us\"", "DE");
    row("tvg-country=\"fr us\"", "FR");
    row("tvg-country=\" ;, fr\"", "FR");
    row("tvg-country=\"USA\" tvg-id=\"CNN.us\"", "US");
    row("tvg-country=\"USA;de\" tvg-id=\"CNN.us\"", "US");
    row("tvg-country=\"USA\"", "");
    row("tvg-country=\";\" tvg-id=\"CNN.us\"", "US");
    row("country=\"tr\"", "TR");
    row("tvg-country=\"de\" country=\"tr\"", "DE");
    row("country=\"tr\" tvg-country=\"de\"", "DE");
    // An attribute that is there rules out the other one, even when it is of no use.
    row("tvg-country=\"USA\" country=\"tr\"", "");
    row("country=\"tr\" tvg-country=\"\"", "TR");
    // The end of one name is another one.
    row("tvg-country=\"\" country=\"tr\"", "");
    row("tvg-id=\"CNN.us\"", "US");
    row("tvg-id=\"BBCOne.uk@HD\"", "UK");
    row("tvg-id=\"TRT1\"", "");
    row("tvg-id=\"Channel.com\"", "");
    row("tvg-id=\"@x.de@SD\"", "DE");
    row("tvg-id=\"@@\"", "");
    row("tvg-id=\"a.b.fr..\"", "FR");
    row("tvg-id=\"...\"", "");
    row("tvg-id=\"it\"", "IT");
    row("tvg-id=\"a. d\"", " D");
    // Characters are those that people count.
    row("tvg-country=\"\u00e4\u00f6\"", "\u00c4\u00d6");
    row("tvg-country=\"e\u0301a\"", "E\u0301A");
    row("tvg-country=\"\u00df\"", "SS");
    row("tvg-country=\"\u00e9\"", "");
    row("tvg-country=\"\U0001f1f9\U0001f1f7\"", "");
}

void PlaylistParserTest::findsTheCountry()
{
    QFETCH(QByteArray, attributes);
    QFETCH(QString, country);
    const auto code = entryFor("#EXTINF:-1 " + attributes + ",A").countryCode();
    QCOMPARE(code.has_value(), !country.isEmpty());
    QCOMPARE(code.value_or(QString()), country);
}

void PlaylistParserTest::readsLogosAsWritten_data()
{
    QTest::addColumn<QByteArray>("logo");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *logo, const char *expected) {
        QTest::newRow(logo) << QByteArray(logo) << QString::fromUtf8(expected);
    };
    row("http://x/l.png?a=b&c", "http://x/l.png?a=b&c");
    row("HTTP://X/../l.png", "HTTP://X/../l.png");
    row("logos/l.png", "logos/l.png");
    row("//x/l.png", "//x/l.png");
    row("http://x/\u0416.png", "http://x/%D0%96.png");
    row(" http://x/l.png ", "http://x/l.png");
    row("http://x/my logo.png", "");
    row("http://x/%zz.png", "");
    row("c:\\l.png", "");
    row("", "");
}

void PlaylistParserTest::readsLogosAsWritten()
{
    QFETCH(QByteArray, logo);
    QFETCH(QString, expected);
    const PlaylistEntry entry = entryFor("#EXTINF:-1 tvg-logo=\"" + logo + "\",A");
    QCOMPARE(entry.name(), QStringLiteral("A"));
    QCOMPARE(QString(entry.logoAddress()), expected);
    QCOMPARE(entry.logoURL().has_value(), !expected.isEmpty());
}

void PlaylistParserTest::namesBareAddresses_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("name");
    const auto row = [](const char *line, const char *name) {
        QTest::newRow(line) << QByteArray(line) << QString::fromUtf8(name);
    };
    row("http://h/live/my%20show.m3u8?a/b#c/d", "my show.m3u8");
    row("http://h/a/\u0416", "\u0416");
    row("http://h/a/%D0%96", "\u0416");
    row("http://h/a/%2525", "%25");
    row("http://h/a//", "a");
    row("http://h", "h");
    row("http://h/", "h");
    row("http://h?a=b", "h");
    row("http://u:p@H.Example:80/", "h.example");
    row("http://[::1]/", "::1");
    row("http://\u00fc.de/", "\u00fc.de");
    row("http://h/%FF", "h");
    row("http://h/%C3", "h");
    row("udp://@:1234", "Stream");
    row("file:///", "Stream");
    row("file:///%FF", "Stream");
    row("foo:bar", "bar");
    row("foo:", "Stream");
}

void PlaylistParserTest::namesBareAddresses()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, name);
    QCOMPARE(namesOf(parse(line)), QStringList(name));
}

void PlaylistParserTest::resolvesAddresses_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArrayList>("addresses");
    const auto row = [](const char *line, const char *address) {
        QTest::newRow(line) << QByteArray(line)
                            << (address ? QByteArrayList { address } : QByteArrayList());
    };
    row("live/1.m3u8", "http://h/list/live/1.m3u8");
    row("/live/1.m3u8", "http://h/live/1.m3u8");
    row("../1.m3u8", "http://h/1.m3u8");
    row("?a=b", "http://h/list/p.m3u?a=b");
    row("//x/1.m3u8", "http://x/1.m3u8");
    row(" \u00a0http://x/1\u3000 ", "http://x/1");
    row("rtmp://x/1", "rtmp://x/1");
    row("my show.m3u8", nullptr);
    row("http://x/{1}", nullptr);
    row("#http://x/1", nullptr);
}

void PlaylistParserTest::resolvesAddresses()
{
    QFETCH(QByteArray, line);
    QFETCH(QByteArrayList, addresses);
    QCOMPARE(addressesOf(parse(line)), addresses);
}

void PlaylistParserTest::acceptsAnyNewline_data()
{
    QTest::addColumn<QByteArray>("newline");
    for (const char *newline : { "\n", "\r\n", "\r", "\v", "\f", "\u0085", "\u2028", "\u2029" })
        QTest::addRow("%s", QByteArray(newline).toHex().constData()) << QByteArray(newline);
}

void PlaylistParserTest::acceptsAnyNewline()
{
    QFETCH(QByteArray, newline);
    const QByteArray list = "#EXTM3U\n\n#EXTINF:-1 group-title=\"G\",A\n#x\nhttp://h/a\nb";
    const auto entries = parse(QByteArray(list).replace("\n", newline));
    QCOMPARE(addressesOf(entries), QByteArrayList({ "http://h/a", "http://h/list/b" }));
    QCOMPARE(namesOf(entries), QStringList({ QStringLiteral("A"), QStringLiteral("b") }));
    QCOMPARE(entries[0].groupTitle(), QStringLiteral("G"));
}

void PlaylistParserTest::replacesPendingMetadata()
{
    const PlaylistEntry entry =
        entryFor("#EXTINF:-1 tvg-logo=\"http://x/l.png\" group-title=\"G\" tvg-country=\"us\",A\n"
                 "#EXTINF:-1, ");
    QCOMPARE(entry.name(), QStringLiteral("a.m3u8"));
    QCOMPARE(entry.logoURL(), std::nullopt);
    QCOMPARE(entry.groupTitle(), std::nullopt);
    QCOMPARE(entry.countryCode(), std::nullopt);
}

void PlaylistParserTest::keepsPendingMetadata()
{
    const PlaylistEntry entry =
        entryFor("#EXTINF:-1 group-title=\"G\",A\n\n#EXTGRP:x\n#\n  \nnot an address");
    QCOMPARE(entry.name(), QStringLiteral("A"));
    QCOMPARE(entry.groupTitle(), QStringLiteral("G"));
}

void PlaylistParserTest::usesMetadataOnce()
{
    const auto entries = parse("#EXTINF:-1 tvg-logo=\"http://x/l.png\" group-title=\"G\" "
                               "tvg-country=\"us\",A\na\nb");
    QCOMPARE(namesOf(entries), QStringList({ QStringLiteral("A"), QStringLiteral("b") }));
    QCOMPARE(entries[1].logoURL(), std::nullopt);
    QCOMPARE(entries[1].groupTitle(), std::nullopt);
    QCOMPARE(entries[1].countryCode(), std::nullopt);
}

void PlaylistParserTest::dropsTrailingMetadata()
{
    QCOMPARE(namesOf(parse("#EXTINF:-1,A\na\n#EXTINF:-1,B\n")), QStringList(QStringLiteral("A")));
}

void PlaylistParserTest::keepsDuplicates()
{
    const auto entries = parse("#EXTINF:-1,A\na\n#EXTINF:-1,A\na\n");
    QCOMPARE(entries.size(), 2);
    QCOMPARE(entries[0].address(), entries[1].address());
    QVERIFY(entries[0].id() != entries[1].id());
    QVERIFY(entries[0] != entries[1]);
}

void PlaylistParserTest::sharesGroups()
{
    const auto entries = parse("#EXTINF:-1 group-title=\"G\",A\na\n"
                               "#EXTINF:-1 group-title=\"H\",B\nb\n"
                               "#EXTINF:-1 group-title=\"G\",C\nc\n");
    QCOMPARE(entries[0].groupTitle(), QStringLiteral("G"));
    QCOMPARE(entries[1].groupTitle(), QStringLiteral("H"));
    QCOMPARE(entries[0].groupTitle()->constData(), entries[2].groupTitle()->constData());

    // Far more than are remembered at a time.
    QByteArray list;
    for (int i = 0; i < 10'000; ++i)
        list += "#EXTINF:-1 group-title=\"G" + QByteArray::number(i % 5000) + "\",A\na\n";
    const auto many = parse(list);
    QCOMPARE(many.size(), 10'000);
    for (int i = 0; i < 10'000; ++i)
        QCOMPARE(many[i].groupTitle(), u'G' + QString::number(i % 5000));
}

void PlaylistParserTest::readsLatin1()
{
    const auto entries = parse("#EXTINF:-1 group-title=\"\xc4\",Caf\xe9\nhttp://h/\xfc.ts");
    QCOMPARE(namesOf(entries), QStringList(QStringLiteral("Caf\u00e9")));
    QCOMPARE(entries[0].groupTitle(), QStringLiteral("\u00c4"));
    QCOMPARE(addressesOf(entries), QByteArrayList { "http://h/%C3%BC.ts" });

    QByteArray everyByte;
    for (int byte = 0; byte < 256; ++byte)
        everyByte += static_cast<char>(byte);
    const auto text = PlaylistText::fromBytes(everyByte);
    QCOMPARE(text.utf8().toByteArray(), QString::fromLatin1(everyByte).toUtf8());
}

void PlaylistParserTest::readsStrings()
{
    QString list = QStringLiteral("#EXTINF:-1,\u0416x\nhttp://h/\u0416");
    QCOMPARE(PlaylistText::fromString(list).utf8().toByteArray(), list.toUtf8());
    // Half a surrogate pair, in a name and in an address.
    list[list.indexOf(u'x')] = QChar(0xd83d);
    list += QChar(0xdcfa);
    const auto entries = PlaylistParser::parse(PlaylistText::fromString(list), base);
    QCOMPARE(entries.size(), 1);
    QVERIFY(entries[0].name().startsWith(QChar(0x416)));
    QVERIFY(entries[0].name().isValidUtf16());
    QVERIFY(entries[0].url().isValid());
}

void PlaylistParserTest::ignoresByteOrderMarks()
{
    QCOMPARE(namesOf(parse("\ufeff#EXTINF:-1,A\na\n\ufeff#EXTM3U\n\ufeff#EXTINF:-1,B\nb")),
        QStringList({ QStringLiteral("A"), QStringLiteral("B") }));
    QCOMPARE(namesOf(parse("\ufeff")), QStringList());
}

void PlaylistParserTest::givesNothingForNothing_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("newlines") << QByteArray("\n\r\n\u2028\n");
    QTest::newRow("metadata") << QByteArray("#EXTM3U\n#EXTINF:-1,A\n");
    QTest::newRow("page") << QByteArray("<html>\n<body class=\"x\">\n</body>\n</html>\n");
    QTest::newRow("NULs") << QByteArray(1000, '\0');
    QTest::newRow("quotes") << QByteArray(1000, '"');
    QTest::newRow("UTF-16") << QByteArray("\xff\xfeh\0t\0t\0p\0:\0/\0/\0h\0", 18);
    QTest::newRow("compressed") << QByteArray("\x1f\x8b\x08\0\0\0\0\0", 8);
}

void PlaylistParserTest::givesNothingForNothing()
{
    QFETCH(QByteArray, bytes);
    QCOMPARE(addressesOf(parse(bytes)), QByteArrayList());
}

void PlaylistParserTest::copesWithHugeLines()
{
    const QByteArray huge(16 << 20, 'a');
    const auto entries = parse("#EXTINF:-1 group-title=\"" + huge + "\"," + huge + "\nhttp://h/"
        + huge + '\n' + huge + "\"\n#" + huge + "\n#EXTINF:" + QByteArray(1 << 20, '"')
        + QByteArray(1 << 20, ',') + "\nb");
    QCOMPARE(entries.size(), 2);
    QCOMPARE(entries[0].name(), QString::fromLatin1(huge));
    QCOMPARE(entries[0].groupTitle(), QString::fromLatin1(huge));
    QCOMPARE(entries[0].address().size(), huge.size() + 9);
    QCOMPARE(entries[1].name().size(), (1 << 20) - 1);
}

void PlaylistParserTest::copesWithMutilatedLists()
{
    QRandomGenerator random(4);
    for (int i = 0; i < 20'000; ++i) {
        QByteArray bytes = tests::awkwardList(random);
        for (int changes = random.bounded(8); changes > 0 && !bytes.isEmpty(); --changes)
            bytes[random.bounded(static_cast<int>(bytes.size()))] =
                static_cast<char>(random.bounded(256));
        for (const PlaylistEntry &entry : parse(bytes)) {
            QVERIFY(!entry.name().isEmpty());
            QVERIFY(entry.url().isValid() && !entry.url().isRelative());
            QVERIFY(!entry.logoURL() || entry.logoURL()->isValid());
            QVERIFY(!entry.groupTitle() || !entry.groupTitle()->isEmpty());
            QVERIFY(!entry.countryCode() || entry.countryCode()->size() >= 2);
        }
    }
}

QTEST_GUILESS_MAIN(PlaylistParserTest)
#include "tst_playlist_parser.moc"
