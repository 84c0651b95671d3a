// Which addresses are videos of YouTube.
#include "sources/OddAddresses.h"
#include "sources/YouTubeContent.h"

#include <QTest>

using namespace zeph;

namespace {

const QString nothing;

} // namespace

class YouTubeContentTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void recognises_data();
    void recognises();
    void takesNothingElse_data();
    void takesNothingElse();
    void isEqualByBothIds();
    void takesNoOddAddress();
    void givesNoBlankIds();
};

void YouTubeContentTest::recognises_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("videoID");
    QTest::addColumn<QString>("playlistID");
    const auto row = [](const char *address, const QString &videoID, const QString &playlistID) {
        QTest::newRow(address) << QString::fromUtf8(address) << videoID << playlistID;
    };
    const auto abc = QStringLiteral("abc");
    const auto list = QStringLiteral("PLx");

    row("https://www.youtube.com/watch?v=abc&list=PLx", abc, list);
    row("https://www.youtube.com/playlist?list=PLx", nothing, list);
    row("https://www.youtube.com/shorts/abc", abc, nothing);
    row("https://www.youtube.com/embed/abc", abc, nothing);
    row("https://www.youtube.com/live/abc", abc, nothing);

    row("https://youtube.com/watch?v=abc", abc, nothing);
    row("https://m.youtube.com/watch?v=abc", abc, nothing);
    row("https://a.b.youtube.com/watch?v=abc", abc, nothing);
    row("https://WWW.YouTube.COM/watch?v=abc", abc, nothing);
    row("http://youtube.com:8080/watch?v=abc", abc, nothing);
    row("https://www.youtube-nocookie.com/embed/abc?list=PLx", abc, list);
    row("https://youtube-nocookie.com/watch?v=abc", abc, nothing);
    row("https://YOUTU.BE/abc", abc, nothing);
    row("https://youtu.be/abc?list=PLx", abc, list);
    row("https://youtu.be/abc/def", abc, nothing);
    row("https://youtu.be/?list=PLx", nothing, list);
    // The short domain has no pages, so "watch" is an id there.
    row("https://youtu.be/watch?v=abc", QStringLiteral("watch"), nothing);

    row("https://youtube.com/watch?v=abc&v=def", abc, nothing);
    row("https://youtube.com/watch?list=PLx&list=PLy&v=abc", abc, list);
    row("https://youtube.com/watch?v&v=abc&list=PLx", nothing, list);
    row("https://youtube.com/watch?v=&list=PLx", nothing, list);
    row("https://youtube.com/watch?v=abc&list", abc, nothing);
    row("https://youtube.com/watch?v=abc&list&list=PLx", abc, nothing);
    row("https://youtube.com/watch?v=abc&LIST=PLx", abc, nothing);
    row("https://youtube.com/watch?%76=a%62c&%6Cist=PLx", abc, list);
    row("https://youtube.com/watch?v=%20abc%0A&list=%E2%80%89PLx%C2%A0", abc, list);
    row("https://youtube.com/watch?v=abc&list=%20%20", abc, nothing);
    row("https://youtube.com/watch?v=a+b%26c", QStringLiteral("a+b&c"), nothing);
    row("https://youtube.com/watch?v=abc#list=PLx", abc, nothing);
    row("https://youtube.com/Watch?v=abc&list=PLx", nothing, list);
    row("https://youtube.com/watch/x?v=abc&list=PLx", nothing, list);

    row("https://youtube.com/c/live/abc", abc, nothing);
    row("https://youtube.com//embed//abc", abc, nothing);
    row("https://youtube.com/embed/live/abc", QStringLiteral("live"), nothing);
    row("https://youtube.com/embed/%20abc%09", abc, nothing);
    row("https://youtube.com/embed/%20?list=PLx", nothing, list);
    row("https://youtube.com/embed/abc?v=def", abc, nothing);
    row("https://youtube.com/live?list=PLx", nothing, list);
    row("https://youtube.com/embed/a!b@\u00fc", QStringLiteral("a!b@\u00fc"), nothing);
}

void YouTubeContentTest::recognises()
{
    QFETCH(QString, address);
    QFETCH(QString, videoID);
    QFETCH(QString, playlistID);
    const auto content = YouTubeContent::fromUrl(QUrl(address));
    QVERIFY(content);
    QCOMPARE(content->videoID.has_value(), !videoID.isEmpty());
    QCOMPARE(content->videoID.value_or(nothing), videoID);
    QCOMPARE(content->playlistID.has_value(), !playlistID.isEmpty());
    QCOMPARE(content->playlistID.value_or(nothing), playlistID);
    QCOMPARE(content->id(), videoID + u'|' + playlistID);
}

void YouTubeContentTest::takesNothingElse_data()
{
    QTest::addColumn<QString>("address");
    const auto row = [](const char *address) {
        QTest::newRow(address) << QString::fromUtf8(address);
    };
    row("https://youtube.com/channel/xyz");
    row("https://youtube.com/live");
    row("https://youtube.com/live/");
    row("https://youtube.com/embed/%20");
    row("https://youtube.com/Watch?v=abc");
    row("https://youtube.com/Shorts/abc");
    row("https://youtube.com/watch");
    row("https://youtube.com/watch?V=abc");
    row("https://youtube.com/watch?list=%20%20");
    row("https://youtube.com");
    row("https://youtu.be");
    row("https://youtu.be/");
    row("https://www.youtu.be/abc");
    row("https://notyoutube.com/watch?v=abc");
    row("https://xyoutube-nocookie.com/embed/abc");
    row("https://youtube.com.example.org/watch?v=abc");
    row("https://youtube.com@example.org/watch?v=abc");
    row("https://example.org/youtube.com/watch?v=abc");
    row("https://youtube.org/watch?v=abc");
}

void YouTubeContentTest::takesNothingElse()
{
    QFETCH(QString, address);
    QVERIFY(!YouTubeContent::fromUrl(QUrl(address)));
}

void YouTubeContentTest::isEqualByBothIds()
{
    const auto content = [](const char *address) {
        return YouTubeContent::fromUrl(QUrl(QString::fromUtf8(address)));
    };
    QCOMPARE(content("https://youtu.be/a?list=b"), content("https://youtube.com/watch?v=a&list=b"));
    QVERIFY(content("https://youtu.be/a?list=b") != content("https://youtu.be/a?list=c"));
    QVERIFY(content("https://youtu.be/a?list=b") != content("https://youtu.be/c?list=b"));
    QVERIFY(content("https://youtu.be/a") != content("https://youtu.be/?list=a"));
}

void YouTubeContentTest::takesNoOddAddress()
{
    for (const QUrl &url : tests::addressesOfNoService())
        QVERIFY(!YouTubeContent::fromUrl(url));

    const QString huge(1 << 20, u'a');
    const auto content = YouTubeContent::fromUrl(QUrl(QStringLiteral("https://youtu.be/") + huge));
    QVERIFY(content);
    QCOMPARE(content->videoID, huge);
}

void YouTubeContentTest::givesNoBlankIds()
{
    const auto urls = tests::randomAddresses(20'000, 1,
        { QStringLiteral("youtube.com"), QStringLiteral("youtu.be"),
            QStringLiteral("youtube-nocookie.com") },
        { QStringLiteral("watch"), QStringLiteral("v"), QStringLiteral("list"),
            QStringLiteral("embed"), QStringLiteral("live"), QStringLiteral("shorts") });
    int recognised = 0;
    for (const QUrl &url : urls) {
        const auto content = YouTubeContent::fromUrl(url);
        if (!content)
            continue;
        ++recognised;
        QVERIFY(content->videoID || content->playlistID);
        for (const auto &id : { content->videoID, content->playlistID }) {
            QVERIFY(!id || !id->isEmpty());
            QVERIFY(!id || id->trimmed() == id);
        }
        QVERIFY(!url.host().startsWith(QLatin1StringView("not")));
    }
    QVERIFY(recognised > 1000);
}

QTEST_GUILESS_MAIN(YouTubeContentTest)
#include "tst_youtube_content.moc"
