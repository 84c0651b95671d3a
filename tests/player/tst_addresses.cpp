// What the model makes of the addresses of streams and pages, and of texts that are none.
#include "ChangeLog.h"
#include "player/PlayerModel.h"
#include "support/Patience.h"
#include "support/StandInPanels.h"
#include "support/TestServer.h"

#include <clocale>

using namespace zeph;

namespace {

const QString invalidAddress = QStringLiteral("Enter a valid HTTP or HTTPS address.");

QUrl clip(const QString &name)
{
    return QUrl::fromLocalFile(qEnvironmentVariable("ZEPH_CLIPS") + u'/' + name);
}

/// Everything that the model publishes, as texts, except what time changes by itself.
QStringList published(const PlayerModel &model)
{
    QStringList values;
    const QMetaObject &type = PlayerModel::staticMetaObject;
    for (int i = type.propertyOffset(); i < type.propertyCount(); ++i) {
        const QByteArray name = type.property(i).name();
        if (name != "currentTime" && name != "duration" && name != "playlist")
            values << QString::fromLatin1(name + ": ")
                    + QDebug::toString(type.property(i).read(&model));
    }
    return values;
}

} // namespace

class AddressesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { std::setlocale(LC_NUMERIC, "C"); }

    // ---- Texts

    void normalizes_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("address");
        const auto row = [](const char *name, const char *text, const char *address) {
            QTest::newRow(name) << QString::fromUtf8(text) << QString::fromUtf8(address);
        };
        row("plain", "http://h/a", "http://h/a");
        row("nothing", "", "");
        row("blank", " \t\r\n\u2028", "");
        row("blanks around", " \n\u00a0http://h/a \u3000\r\n", "http://h/a");
        row("byte-order marks", "\ufeff http://h/a\ufeff", "http://h/a");
        row("blanks within", "http://h/ a", "http://h/ a");
        row("angle brackets", "<http://h/a>", "http://h/a");
        row("blanks within angle brackets", " < http://h/a > ", "http://h/a");
        row("two angle brackets", "<>", "<>");
        row("one within angle brackets", "<a>", "a");
        row("one pair of angle brackets only", "<<http://h/a>>", "<http://h/a>");
        row("left bracket only", "<http://h/a", "<http://h/a");
        row("right bracket only", "http://h/a>", "http://h/a>");
        row("Markdown", "[My list](http://h/a)", "http://h/a");
        row("Markdown without a label", "[](http://h/a)", "http://h/a");
        row("Markdown without an address", "[label]()", "");
        row("Markdown with blanks", " [a]( http://h/a ) ", "http://h/a");
        row("Markdown with angle brackets", "[a](<http://h/a>)", "http://h/a");
        row("Markdown with angle brackets and blanks", "[a]( <http://h/a> )", "<http://h/a>");
        row("Markdown within angle brackets", "<[a](http://h/a)>", "[a](http://h/a)");
        row("Markdown of a link", "[a](http://h/a](b))", "http://h/a](b)");
        row("parentheses in the address", "[a](http://h/a(1).m3u)", "http://h/a(1).m3u");
        row("text before Markdown", "see [a](http://h/a)", "http://h/a");
        row("text after Markdown", "[a](http://h/a) here", "[a](http://h/a) here");
        row("only the middle", "](", "](");
        row("only the ends", "]()", "");
        row("parentheses", "(http://h/a)", "(http://h/a)");
    }

    void normalizes()
    {
        QFETCH(const QString, text);
        QTEST(PlayerModel::normalizedRemoteAddress(text), "address");
    }

    void recognizesLists_data()
    {
        QTest::addColumn<bool>("isList");
        const auto row = [](const char *address, bool isList) { QTest::newRow(address) << isList; };
        row("http://h/a.m3u", true);
        row("http://h/a.M3U", true);
        row("http://h/a.m3u?x=y#z", true);
        row("http://h/a%2Em3u", true);
        row("http://h/a.m3u8", false);
        row("http://h/a.m3u8?type=m3u", true);
        row("http://h/m3u", false);
        row("http://h/.m3u", false);
        row("http://a.m3u", false);
        row("http://h/a.m3u/b", false);
        row("http://h", false);
        row("http://h/?", false);
        row("http://h/get.php?user=a&type=m3u_plus&output=ts", true);
        row("http://h/get.php?TYPE=M3U", true);
        row("http://h/?output=m3u8", true);
        row("http://h/?format=m3u", true);
        row("http://h/?mytype=m3u", true);
        row("http://h/?x=type=m3u", true);
        row("http://h/?type%3Dm3u", true);
        row("http://h/?type=%6D3u", true);
        row("http://h/?type=ts&x=m3u", false);
        row("http://h/?type=xm3u", false);
        row("http://h/?type", false);
        row("http://h/?type=&m3u", false);
        row("http://h/#type=m3u", false);
        row("http://h/type=m3u", false);
        row("ftp://h/a.m3u", true);
        row("a.m3u", true);
        row("", false);
    }

    void recognizesLists()
    {
        QFETCH(const bool, isList);
        const QUrl url(QString::fromLatin1(QTest::currentDataTag()));
        QCOMPARE(PlayerModel::isIPTVPlaylistURL(url), isList);
    }

    // ---- Addresses that are none

    void refuses_data()
    {
        QTest::addColumn<QString>("address");
        for (const char *address :
            { "", "  ", "<>", "[a]()", "ftp://h/list.m3u", "file:///etc/passwd", "/etc/passwd",
                "list.m3u", "//h/a.m3u8", "h/a.m3u8", "http", "http//h", "://h", "edl://http://h",
                "javascript:alert(1)", "data:,x", "http://h/a b.m3u8", "http://h/\"a\"",
                "http://h/a\nb", "http://h/%", "http://h/%zz", "http://[::1", "http://h:port/",
                "two http://h/a.m3u8", "youtube:dQw4w9WgXcQ" })
            QTest::newRow(address) << QString::fromLatin1(address);
        QTest::newRow("half a surrogate pair") << QStringLiteral("http://h/") + QChar(0xd800);
        QTest::newRow("zero") << QStringLiteral("http://h/") + QChar(0);
    }

    void refuses()
    {
        QFETCH(const QString, address);
        PlayerModel model(m_panels);
        model.openRemote(address, QStringLiteral("A name"));
        QCOMPARE(model.errorMessage(), invalidAddress);
        QVERIFY(!model.isLoading());
        QVERIFY(!model.isPlaying());
        QVERIFY(!model.player()->currentItem());
    }

    void anAddressThatIsNoneLeavesPlaybackUntouched()
    {
        PlayerModel model(m_panels);
        model.play(clip(QStringLiteral("numbered-25.mp4")), QStringLiteral("Clip"), false);
        QTRY_VERIFY(model.videoAspectRatio() > 0);
        QStringList before = published(model);
        ChangeLog log(model);
        model.openRemote(QStringLiteral("ftp://h/list.m3u"), QStringLiteral("A name"));
        QCOMPARE(log.changes, QStringList(QStringLiteral("errorMessage")));
        before.replaceInStrings(QStringLiteral("errorMessage: QVariant(QString, \"\")"),
            QStringLiteral("errorMessage: QVariant(QString, \"%1\")").arg(invalidAddress));
        QCOMPARE(published(model), before);
        QVERIFY(model.isPlaying());
    }

    // ---- Streams

    void aLiveStreamInAngleBrackets()
    {
        PlayerModel model(m_panels);
        model.openRemote(QStringLiteral("  <https://127.0.0.1:9/live/a.m3u8> \n"), QString());
        QCOMPARE(model.title(), QStringLiteral("Zeph Player"));
        QVERIFY(model.isLiveStream());
        QVERIFY(model.isPlaying());
        QVERIFY(!model.isLoading());
        QCOMPARE(model.currentURL(), QUrl(QStringLiteral("https://127.0.0.1:9/live/a.m3u8")));
        QCOMPARE(model.errorMessage(), QString());
    }

    void streams_data()
    {
        QTest::addColumn<QString>("address");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("title");
        QTest::addColumn<bool>("isLive");
        const QString zephPlayer = QStringLiteral("Zeph Player");
        QTest::newRow("file") << "http://127.0.0.1:9/a.mp4"
                              << "" << zephPlayer << false;
        QTest::newRow("name") << "http://127.0.0.1:9/a.mp4"
                              << " My film\n"
                              << "My film" << false;
        QTest::newRow("blank name") << "http://127.0.0.1:9/a.mp4"
                                    << " \n " << zephPlayer << false;
        QTest::newRow("live in capitals") << "HTTPS://127.0.0.1:9/a.M3U8"
                                          << "" << zephPlayer << true;
        QTest::newRow("no path") << "http://127.0.0.1:9"
                                 << "" << zephPlayer << false;
        QTest::newRow("other letters") << "http://127.0.0.1:9/\u0436.m3u8?\u00e9"
                                       << "" << zephPlayer << true;
        QTest::newRow("no host") << "http:"
                                 << "" << zephPlayer << false;
    }

    void streams()
    {
        QFETCH(const QString, address);
        QFETCH(const QString, name);
        PlayerModel model(m_panels);
        model.openRemote(address, name);
        QTEST(model.title(), "title");
        QTEST(model.isLiveStream(), "isLive");
        QVERIFY(model.isPlaying());
        QVERIFY(model.player()->currentItem());
        QCOMPARE(model.errorMessage(), QString());
    }

    void aStreamPlaysOverTheNetwork()
    {
        const TestServer server(qEnvironmentVariable("ZEPH_CLIPS"));
        PlayerModel model(m_panels);
        model.openRemote(server.url(QStringLiteral("/colours.mp4")).toString(), {});
        QTRY_VERIFY(model.currentTime() > 0.2);
    }

    // ---- Web pages

    void aYouTubeAddress()
    {
        PlayerModel model(m_panels);
        model.play(clip(QStringLiteral("numbered-25.mp4")), std::nullopt, true);
        QTRY_VERIFY(model.currentTime() > 0);
        const QUuid before = model.mediaLoadID();
        model.openRemote(
            QStringLiteral("https://youtu.be/dQw4w9WgXcQ"), QStringLiteral(" A song "));
        QVERIFY(model.youtubeContent());
        QCOMPARE(model.youtubeContent()->videoID, QStringLiteral("dQw4w9WgXcQ"));
        verifyShowsAPage(model, before);
        QCOMPARE(model.title(), QStringLiteral("A song"));
    }

    void anOKAddress()
    {
        PlayerModel model(m_panels);
        model.openRemote(QStringLiteral("https://youtu.be/dQw4w9WgXcQ"), QString());
        const QUuid before = model.mediaLoadID();
        model.openRemote(QStringLiteral("[video](https://ok.ru/video/123456)"), QString());
        QVERIFY(!model.youtubeContent());
        QCOMPARE(model.okVideoContent()->videoID, QStringLiteral("123456"));
        verifyShowsAPage(model, before);
        QCOMPARE(model.title(), QStringLiteral("Zeph Player"));
    }

    void aPageThatNamesAListIsAPage()
    {
        PlayerModel model(m_panels);
        model.openRemote(QStringLiteral("https://youtu.be/dQw4w9WgXcQ?type=m3u"), QString());
        QVERIFY(model.youtubeContent());
        QVERIFY(!model.isLoading());
    }

    // ---- Discarding

    void aLocalFileSurvivesClearing()
    {
        PlayerModel model(m_panels);
        model.play(clip(QStringLiteral("colours.mp4")), QStringLiteral("Colours"), false);
        model.clearNetworkStream();
        QVERIFY(!model.isPlaying());
        QVERIFY(!model.player()->currentItem());
        model.togglePlayback();
        QVERIFY(model.isPlaying());
        QCOMPARE(model.title(), QStringLiteral("Colours"));
        QCOMPARE(model.currentURL(), clip(QStringLiteral("colours.mp4")));
        QCOMPARE(model.toastMessage(), QString());
    }

    void discardingLeavesWhatPlays()
    {
        PlayerModel model(m_panels);
        model.discardLastRemoteSource();
        model.openRemote(QStringLiteral("https://youtu.be/dQw4w9WgXcQ"), QStringLiteral("A song"));
        ChangeLog log(model);
        model.discardLastRemoteSource();
        QVERIFY(log.changes.isEmpty());
        QVERIFY(model.youtubeContent());
        model.stop();
        model.togglePlayback();
        QVERIFY(!model.youtubeContent());
        QVERIFY(!model.toastMessage().isEmpty());
    }

    // ---- Replaying

    void replaysAPageWithoutANewLoad()
    {
        PlayerModel model(m_panels);
        model.openRemote(QStringLiteral("https://ok.ru/video/123456"), QStringLiteral("Video"));
        const QUuid load = model.mediaLoadID();
        model.stop();
        QCOMPARE(model.videoAspectRatio(), 0.0);
        model.togglePlayback();
        QCOMPARE(model.okVideoContent()->videoID, QStringLiteral("123456"));
        QCOMPARE(model.title(), QStringLiteral("Video"));
        QVERIFY(model.isPlaying());
        QCOMPARE(model.mediaLoadID(), load);
        QCOMPARE(model.videoAspectRatio(), 0.0);
    }

    void replaysALiveStreamAsOne()
    {
        PlayerModel model(m_panels);
        model.openRemote(QStringLiteral("http://127.0.0.1:9/a.m3u8"), QStringLiteral("News"));
        model.updateStreamTitle(QStringLiteral("Late news"));
        model.stop();
        QVERIFY(!model.isLiveStream());
        model.togglePlayback();
        QVERIFY(model.isLiveStream());
        QCOMPARE(model.title(), QStringLiteral("News"));
    }

private:
    static void verifyShowsAPage(const PlayerModel &model, QUuid loadBefore)
    {
        QVERIFY(!model.okVideoContent() || !model.youtubeContent());
        QVERIFY(model.isPlaying());
        QVERIFY(!model.isLoading());
        QVERIFY(!model.isLiveStream());
        QVERIFY(!model.isBuffering());
        QCOMPARE(model.currentTime(), 0.0);
        QCOMPARE(model.duration(), 0.0);
        QCOMPARE(model.videoAspectRatio(), 16.0 / 9);
        QVERIFY(model.mediaLoadID() != loadBefore);
        QCOMPARE(model.videoAspectMediaLoadID(), model.mediaLoadID());
    }

    StandInPanels m_panels;
};

QTEST_GUILESS_MAIN(AddressesTest)
#include "tst_addresses.moc"
