// Which addresses are videos of OK.
#include "sources/OddAddresses.h"
#include "sources/OKVideoContent.h"

#include <QTest>

using namespace zeph;

class OKVideoContentTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void recognises_data();
    void recognises();
    void takesNothingElse_data();
    void takesNothingElse();
    void hasAnEmbedAddress();
    void takesNoOddAddress();
    void givesOnlyAllowedIds();
};

void OKVideoContentTest::recognises_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("videoID");
    const auto row = [](const char *address, const char *videoID) {
        QTest::newRow(address) << QString::fromUtf8(address) << QString::fromUtf8(videoID);
    };
    row("https://ok.ru/video/123456", "123456");
    row("https://ok.ru/videoembed/123456", "123456");
    row("https://ok.ru/live/123456", "123456");
    row("https://m.ok.ru/video/123456?x=y#z", "123456");
    row("https://a.b.ok.ru/video/123456", "123456");
    row("https://OK.RU/video/123456", "123456");
    row("https://ok.ru/profile/1/video/2/live/3", "2");
    row("https://ok.ru/video/live/3", "live");
    row("https://ok.ru//video//123456/", "123456");
    row("https://ok.ru/%76ideo/12345%36", "123456");
    row("https://ok.ru/video/%20123456%C2%A0", "123456");
    row("https://ok.ru/video/a-B_9", "a-B_9");
    row("https://ok.ru/video/\u0661\u0662\u00fc", "\u0661\u0662\u00fc");
    row("https://ok.ru/video/e\u0301", "e\u0301");
    row("https://ok.ru/video/\U0001d7d8", "\U0001d7d8");
}

void OKVideoContentTest::recognises()
{
    QFETCH(QString, address);
    QFETCH(QString, videoID);
    const auto content = OKVideoContent::fromUrl(QUrl(address));
    QVERIFY(content);
    QCOMPARE(content->videoID, videoID);
    QCOMPARE(content->id(), videoID);
}

void OKVideoContentTest::takesNothingElse_data()
{
    QTest::addColumn<QString>("address");
    const auto row = [](const char *address) {
        QTest::newRow(address) << QString::fromUtf8(address);
    };
    row("https://ok.ru/video/12 34");
    row("https://ok.ru/video/12%2034");
    row("https://ok.ru/profile/1");
    row("https://ok.ru/video/");
    row("https://ok.ru/video");
    row("https://ok.ru/video/%20");
    row("https://ok.ru/Video/1");
    row("https://ok.ru/videos/1");
    row("https://ok.ru/video/1.2");
    row("https://ok.ru/video/1%2F2");
    row("https://ok.ru/video/%FF");
    row("https://ok.ru/video/1%C3");
    row("https://ok.ru/video/1%00");
    row("https://ok.ru/video/\U0001f4fa");
    row("https://ok.ru/?video/1");
    row("https://ok.ru");
    row("https://notok.ru/video/1");
    row("https://ok.ru.example.org/video/1");
    row("https://ok.ru@example.org/video/1");
    row("https://ok.rus/video/1");
}

void OKVideoContentTest::takesNothingElse()
{
    QFETCH(QString, address);
    QVERIFY(!OKVideoContent::fromUrl(QUrl(address)));
}

void OKVideoContentTest::hasAnEmbedAddress()
{
    const auto embedAddress = [](const char *id) {
        return OKVideoContent { QString::fromUtf8(id) }.embedURL().toEncoded();
    };
    QCOMPARE(embedAddress("123"), "https://ok.ru/videoembed/123?autoplay=1&nochat=1");
    QCOMPARE(embedAddress("\u00fc"), "https://ok.ru/videoembed/%C3%BC?autoplay=1&nochat=1");
}

void OKVideoContentTest::takesNoOddAddress()
{
    for (const QUrl &url : tests::addressesOfNoService())
        QVERIFY(!OKVideoContent::fromUrl(url));

    const QString huge(1 << 20, u'1');
    const auto content =
        OKVideoContent::fromUrl(QUrl(QStringLiteral("https://ok.ru/video/") + huge));
    QVERIFY(content);
    QCOMPARE(content->videoID, huge);
}

void OKVideoContentTest::givesOnlyAllowedIds()
{
    const auto urls = tests::randomAddresses(20'000, 2, { QStringLiteral("ok.ru") },
        { QStringLiteral("video"), QStringLiteral("videoembed"), QStringLiteral("live"),
            QStringLiteral("123") });
    int recognised = 0;
    for (const QUrl &url : urls) {
        const auto content = OKVideoContent::fromUrl(url);
        if (!content)
            continue;
        ++recognised;
        QVERIFY(!content->videoID.isEmpty());
        for (const QChar forbidden : QStringLiteral(" %/+=&;.\u00a0\u2028"))
            QVERIFY(!content->videoID.contains(forbidden));
        // Nothing of the id ends up anywhere but in the path.
        const QUrl embed = content->embedURL();
        QVERIFY(embed.isValid());
        QCOMPARE(embed.host(), QStringLiteral("ok.ru"));
        QCOMPARE(embed.query(), QStringLiteral("autoplay=1&nochat=1"));
        QCOMPARE(OKVideoContent::fromUrl(embed), content);
        QVERIFY(!url.host().startsWith(QLatin1StringView("not")));
    }
    QVERIFY(recognised > 1000);
}

QTEST_GUILESS_MAIN(OKVideoContentTest)
#include "tst_ok_video_content.moc"
