// Video and playlist ids that try to become scripts or elements of our page.
#include "HostileTexts.h"
#include "sources/web/YouTubePage.h"
#include "support/EngineTest.h"
#include "WebTest.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace zeph;

namespace {

const QString elements = QStringLiteral("html head meta meta style body div script script");

// What the browser makes of the pages of these ids: the elements, whether anything foreign has run,
// and the ids that our script hands to the player.
QString readingsOf(const QStringList &ids)
{
    QJsonArray pages;
    for (const QString &id : ids)
        pages += youTubePage({ id, id }, PageMessages());
    const QByteArray json = QJsonDocument(pages).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(json) + QStringLiteral(R"(.map(function (html) {
    var page = new DOMParser().parseFromString(html, 'text/html');
    var given;
    var YT = { Player: function (id, options) { given = options; } };
    var run = new Function('YT', page.scripts[1].textContent + '; onYouTubeIframeAPIReady();');
    window.hit = 0;
    run(YT);
    return [
        Array.from(page.querySelectorAll('*'), element => element.localName).join(' '),
        window.hit, given.videoId, given.playerVars.list
    ];
}))");
}

} // namespace

class HostileIdentifiersTest : public WebTest {
    Q_OBJECT

public:
    using WebTest::WebTest;

private Q_SLOTS:
    void stayTextsInThePage()
    {
        PlayerWindow player;
        player.open(video);
        QTRY_VERIFY(player.plays());
        // A script of all of them would be too long for the browser.
        const QStringList texts = hostileTexts();
        for (qsizetype begin = 0; begin < texts.size(); begin += 100) {
            const QStringList some = texts.mid(begin, 100);
            const QJsonArray readings = player.valueInPage(readingsOf(some)).toArray();
            QCOMPARE(readings.size(), some.size());
            for (qsizetype i = 0; i < some.size(); ++i)
                QCOMPARE(
                    readings.at(i), QJsonValue(QJsonArray { elements, 0, some.at(i), some.at(i) }));
        }
    }

    void stayTextsInARealPlayer()
    {
        PlayerWindow player;
        for (const QString &text : hostileTexts().mid(0, knownHostileTextCount)) {
            player.model().show(YouTubeContent { text, text }, {});
            const QJsonArray expected { QJsonValue(), text, text };
            QTRY_VERIFY(player.valueInPage(QStringLiteral(
                            "window.stub && stub.options && [window.hit, stub.options.videoId,"
                            "stub.options.playerVars.list]"))
                == expected);
        }
    }
};

ZEPH_WEB_TEST_MAIN(HostileIdentifiersTest)
#include "tst_hostile_identifiers.moc"
