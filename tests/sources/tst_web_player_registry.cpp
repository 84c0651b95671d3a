// Commands that reach the page that is shown.
#include "sources/WebPlayerRegistry.h"
#include "support/Patience.h"

#include <QThread>

using namespace zeph;

namespace {

/// Remembers what it is asked to run.
class RecordingPage final : public WebPage {
public:
    void evaluateJavaScript(const QString &script) override
    {
        scripts += script;
        thread = QThread::currentThread();
    }

    QStringList scripts;
    QThread *thread = nullptr;
};

const QString first = QStringLiteral("first();");
const QString second = QStringLiteral("second();");

} // namespace

class WebPlayerRegistryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void isOnePerService();
    void runsScriptsLaterAndInOrder();
    void usesThePageOfTheMoment();
    void forgetsAPageThatIsGone();
    void needsNoPage();
    void takesScriptsFromAnyThread();
    void mutesYouTube();
    void mutesOK();

private:
    WebPlayerRegistry &m_registry = YouTubePlayerRegistry::shared();
};

void WebPlayerRegistryTest::cleanup()
{
    YouTubePlayerRegistry::shared().setWebView(nullptr);
    OKVideoPlayerRegistry::shared().setWebView(nullptr);
}

void WebPlayerRegistryTest::isOnePerService()
{
    RecordingPage page;
    YouTubePlayerRegistry::shared().setWebView(&page);
    QCOMPARE(YouTubePlayerRegistry::shared().webView(), &page);
    QCOMPARE(OKVideoPlayerRegistry::shared().webView(), nullptr);
}

void WebPlayerRegistryTest::runsScriptsLaterAndInOrder()
{
    RecordingPage page;
    m_registry.setWebView(&page);
    m_registry.evaluate(first);
    m_registry.evaluate(second);
    QCOMPARE(page.scripts, QStringList());
    QTRY_COMPARE(page.scripts, QStringList({ first, second }));
}

void WebPlayerRegistryTest::usesThePageOfTheMoment()
{
    RecordingPage before;
    RecordingPage after;
    m_registry.setWebView(&before);
    m_registry.evaluate(first);
    m_registry.setWebView(&after);
    QTRY_COMPARE(after.scripts, QStringList(first));
    QCOMPARE(before.scripts, QStringList());
}

void WebPlayerRegistryTest::forgetsAPageThatIsGone()
{
    auto page = std::make_unique<RecordingPage>();
    m_registry.setWebView(page.get());
    m_registry.evaluate(first);
    page.reset();
    QCOMPARE(m_registry.webView(), nullptr);
    QCoreApplication::processEvents();
}

void WebPlayerRegistryTest::needsNoPage()
{
    m_registry.evaluate(first);
    QCoreApplication::processEvents();
    // What found no page is not kept for the next one.
    RecordingPage page;
    m_registry.setWebView(&page);
    m_registry.evaluate(second);
    QTRY_COMPARE(page.scripts, QStringList(second));
}

void WebPlayerRegistryTest::takesScriptsFromAnyThread()
{
    RecordingPage page;
    m_registry.setWebView(&page);
    const std::unique_ptr<QThread> thread(QThread::create([this] {
        m_registry.evaluate(first);
        m_registry.setMuted(true);
    }));
    thread->start();
    QTRY_COMPARE(page.scripts, QStringList({ first, QStringLiteral("zephSetMuted(true);") }));
    QCOMPARE(page.thread, QThread::currentThread());
    QVERIFY(thread->wait());
}

void WebPlayerRegistryTest::mutesYouTube()
{
    RecordingPage page;
    YouTubePlayerRegistry::shared().setWebView(&page);
    YouTubePlayerRegistry::shared().setMuted(true);
    YouTubePlayerRegistry::shared().setMuted(false);
    QTRY_COMPARE(page.scripts,
        QStringList(
            { QStringLiteral("zephSetMuted(true);"), QStringLiteral("zephSetMuted(false);") }));
}

void WebPlayerRegistryTest::mutesOK()
{
    RecordingPage page;
    OKVideoPlayerRegistry::shared().setWebView(&page);
    OKVideoPlayerRegistry::shared().setMuted(true);
    OKVideoPlayerRegistry::shared().setMuted(false);
    const auto script = QStringLiteral("var v=document.querySelector('video'); if(v){v.muted=%1;}");
    QTRY_COMPARE(page.scripts,
        QStringList({ script.arg(QStringLiteral("true")), script.arg(QStringLiteral("false")) }));
}

QTEST_GUILESS_MAIN(WebPlayerRegistryTest)
#include "tst_web_player_registry.moc"
