// What the web players do when a page does not come, or goes.
#include "support/EngineTest.h"
#include "WebTest.h"

#include <csignal>

using namespace zeph;
using namespace std::chrono_literals;

class WebPlayerFailuresTest : public WebTest {
    Q_OBJECT

public:
    using WebTest::WebTest;

private Q_SLOTS:
    void aServiceThatIsDownAndComesBack_data() { eachService(); }
    void aServiceThatIsDownAndComesBack()
    {
        QFETCH(QString, address);
        PlayerWindow player;
        {
            m_services.youTube().stop();
            m_services.ok().stop();
            const auto comeBack = qScopeGuard([this] {
                m_services.youTube().start();
                m_services.ok().start();
            });
            player.open(address);
            QTRY_VERIFY(!player.playerView()->failure().isEmpty());
        }
        player.clickRetry();
        QTRY_VERIFY(player.plays());
        QCOMPARE(player.playerView()->failure(), QString());
    }

    void anAnswerThatThereIsNothing_data()
    {
        QTest::addColumn<QString>("address");
        QTest::addColumn<QString>("path");
        QTest::addColumn<int>("status");
        QTest::newRow("YouTube 404") << video << playerScript << 404;
        QTest::newRow("YouTube 503") << video << playerScript << 503;
        QTest::newRow("OK 404") << okVideo << okPage << 404;
        QTest::newRow("OK 503") << okVideo << okPage << 503;
    }
    void anAnswerThatThereIsNothing()
    {
        QFETCH(QString, address);
        QFETCH(QString, path);
        QFETCH(int, status);
        TestServer &service = path == okPage ? m_services.ok() : m_services.youTube();
        service.serveStatus(path, status);
        PlayerWindow player;
        player.open(address);
        QTRY_VERIFY(!player.playerView()->failure().isEmpty());
        m_services.restore();
        player.clickRetry();
        QTRY_VERIFY(player.plays());
    }

    void aCertificateThatNobodyKnows()
    {
        m_services.ok().redirect(okPage, "https://stranger.example/");
        PlayerWindow player;
        player.open(okVideo);
        QTRY_VERIFY(!player.playerView()->failure().isEmpty());
        QCOMPARE(m_services.stranger().requestCount(QStringLiteral("/")), 0);
    }

    void aServiceThatIsTooSlow_data()
    {
        QTest::addColumn<QString>("address");
        QTest::addColumn<QString>("path");
        QTest::newRow("YouTube") << video << playerScript;
        QTest::newRow("YouTube's frame") << video << videoPage;
        QTest::newRow("OK") << okVideo << okPage;
    }
    void aServiceThatIsTooSlow()
    {
        QFETCH(QString, address);
        QFETCH(QString, path);
        TestServer &service = path == okPage ? m_services.ok() : m_services.youTube();
        service.hold(path);
        PlayerWindow player;
        player.open(address);
        player.playerView()->setPatience(500ms);
        player.playerView()->retry();
        QTRY_VERIFY(
            player.playerView()->failure() == QStringLiteral("The video service does not answer."));
        player.playerView()->setPatience(std::chrono::milliseconds(patience));
        service.letGo(path);
        m_services.restore();
        player.playerView()->retry();
        QTRY_VERIFY(player.plays());
    }

    void aRendererThatIsKilled_data() { eachService(); }
    void aRendererThatIsKilled()
    {
        QFETCH(QString, address);
        PlayerWindow player;
        player.open(address);
        QTRY_VERIFY(player.plays());
        const auto renderer = [&player] {
            return player.webView()->property("renderProcessPid").toInt();
        };
        const int first = renderer();
        ::kill(first, SIGKILL);
        QTRY_VERIFY(renderer() != first && renderer() != 0);
        QTRY_VERIFY(player.plays());
        QCOMPARE(player.playerView()->failure(), QString());

        ::kill(renderer(), SIGKILL);
        QTRY_VERIFY(
            player.playerView()->failure() == QStringLiteral("The video page has crashed."));
        player.playerView()->retry();
        QTRY_VERIFY(player.plays());
    }
};

ZEPH_WEB_TEST_MAIN(WebPlayerFailuresTest)
#include "tst_web_player_failures.moc"
