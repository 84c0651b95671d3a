// What a page cannot do: reach the user, the files, or other programs.
#include "support/EngineTest.h"
#include "WebTest.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QDir>
#include <QDirIterator>
#include <QGuiApplication>
#include <QJsonArray>

#include <algorithm>

using namespace zeph;

namespace {

/// Gets the addresses that are opened outside, instead of another program.
class OutsideBrowser : public QObject {
    Q_OBJECT

public:
    OutsideBrowser()
    {
        for (const QString &scheme : schemes())
            QDesktopServices::setUrlHandler(scheme, this, "open");
    }
    ~OutsideBrowser() override
    {
        for (const QString &scheme : schemes())
            QDesktopServices::unsetUrlHandler(scheme);
    }

    QList<QUrl> opened;

public Q_SLOTS:
    void open(const QUrl &url) { opened += url; }

private:
    static QStringList schemes()
    {
        return { QStringLiteral("https"), QStringLiteral("file"), QStringLiteral("mailto"),
            QStringLiteral("unknown") };
    }
};

} // namespace

class PageLimitsTest : public WebTest {
    Q_OBJECT

public:
    using WebTest::WebTest;

private Q_SLOTS:
    void cleanup()
    {
        WebTest::cleanup();
        QVERIFY(m_outside.opened.isEmpty());
        QVERIFY(!QDir(m_services.home() + QStringLiteral("/Downloads")).exists());
    }

    void aLinkThatTheUserClicksOpensOutside()
    {
        PlayerWindow player;
        showPage(player, "<a target=_blank href='https://www.youtube.com/channel'>More</a>");
        QTRY_VERIFY((player.click(), !m_outside.opened.isEmpty()));
        QCOMPARE(m_outside.opened.first(), QUrl(QStringLiteral("https://www.youtube.com/channel")));
        QCOMPARE(windowCount(), 1);
        m_outside.opened.clear();
    }

    void aPageOpensNoWindow()
    {
        PlayerWindow player;
        showPage(player, "");
        QCOMPARE(player.valueInPage(QStringLiteral("window.open('https://ok.ru/')")), QJsonValue());
        QCOMPARE(windowCount(), 1);
    }

    void linksToOtherThanTheWebDoNothing_data()
    {
        QTest::addColumn<QString>("link");
        QTest::newRow("file") << QStringLiteral("file:///etc/passwd");
        QTest::newRow("mail") << QStringLiteral("mailto:someone@example.org");
        QTest::newRow("unknown") << QStringLiteral("unknown:something");
    }
    void linksToOtherThanTheWebDoNothing()
    {
        QFETCH(QString, link);
        PlayerWindow player;
        showPage(player,
            "<a target=_blank onclick='++clicks' href='" + link.toUtf8()
                + "'>New window</a><script>var clicks = 0;</script>");
        QTRY_VERIFY((player.click(), player.valueInPage(QStringLiteral("clicks")).toInt() > 0));
        // In this window it does not get away either.
        (void)player.valueInPage(QStringLiteral("location = '%1'").arg(link));
        QCOMPARE(windowCount(), 1);
        QCOMPARE(player.valueInPage(QStringLiteral("location.host")), QStringLiteral("ok.ru"));
    }

    void otherPagesOfTheWebOpenInPlace()
    {
        PlayerWindow player;
        showPage(player, "<a href='https://www.youtube.com/embed/abc'>Elsewhere</a>");
        QTRY_VERIFY((player.click(), player.valueInPage(QStringLiteral("location.host")))
            == QStringLiteral("www.youtube.com"));
    }

    void permissionsAreDenied_data()
    {
        QTest::addColumn<QString>("request");
        const auto row = [](const char *name, const char *request) {
            QTest::newRow(name) << QString::fromLatin1(request);
        };
        row("place", "new Promise((yes, no) => navigator.geolocation.getCurrentPosition(yes, no))");
        row("camera", "navigator.mediaDevices.getUserMedia({ video: true })");
        row("microphone", "navigator.mediaDevices.getUserMedia({ audio: true })");
        row("screen", "navigator.mediaDevices.getDisplayMedia({ video: true })");
        row("notifications",
            "Notification.requestPermission().then(given => { if (given !== 'granted') throw 0; "
            "})");
        row("reading the clipboard", "navigator.clipboard.readText()");
        row("writing the clipboard", "navigator.clipboard.writeText('the page\\'s')");
        row("files", "fetch('file:///etc/passwd')");
        row("choice of files", "window.showOpenFilePicker()");
        row("MIDI", "navigator.requestMIDIAccess({ sysex: true })");
    }
    void permissionsAreDenied()
    {
        QFETCH(QString, request);
        PlayerWindow player;
        showPage(player, "");
        (void)player.valueInPage(
            QStringLiteral("(async function () { var outcome = 'given'; try { await %1; } "
                           "catch (error) { outcome = 'denied'; } window.outcome = outcome; })()")
                .arg(request));
        QTRY_VERIFY(player.valueInPage(QStringLiteral("window.outcome")).isString());
        QCOMPARE(player.valueInPage(QStringLiteral("window.outcome")), QStringLiteral("denied"));
        QCOMPARE(windowCount(), 1);
    }

    // When the user asks the page to copy something, it may; the browser does not let us forbid it.
    void theClipboardIsNotThePages()
    {
        QGuiApplication::clipboard()->setText(QStringLiteral("the user's"));
        PlayerWindow player;
        showPage(player, "<textarea>the page's</textarea>");
        QCOMPARE(
            player.valueInPage(QStringLiteral(
                "(document.querySelector('textarea').select(), document.execCommand('copy'))")),
            QJsonValue(false));
        QCOMPARE(
            player.valueInPage(QStringLiteral("document.execCommand('paste')")), QJsonValue(false));
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("the user's"));
    }

    void dialoguesAreAnsweredAtOnce()
    {
        PlayerWindow player;
        showPage(player, "");
        QCOMPARE(player.valueInPage(QStringLiteral("[confirm('?'), prompt('?'), alert('!')]")),
            QJsonValue(QJsonArray { false, QJsonValue(), QJsonValue() }));
        QCOMPARE(windowCount(), 1);
    }

    void aPageCannotHoldTheUserBack()
    {
        PlayerWindow player;
        showPage(player,
            "<p onclick='clicked = true'>Click</p><script>var clicked = false;"
            "onbeforeunload = event => { event.preventDefault(); return event.returnValue = "
            "'Stay'; };"
            "</script>");
        QTRY_VERIFY((player.click(), player.valueInPage(QStringLiteral("clicked"))) == true);
        player.model().stop();
        QTRY_VERIFY(!player.playerView());
    }

    void filesAreNotChosen()
    {
        PlayerWindow player;
        showPage(player,
            "<input type=file onclick='clicked = true'><script>var clicked = false;</script>");
        QTRY_VERIFY((player.click(), player.valueInPage(QStringLiteral("clicked"))) == true);
        QCOMPARE(windowCount(), 1);
        QCOMPARE(player.valueInPage(QStringLiteral("document.querySelector('input').files.length")),
            QJsonValue(0));
    }

    void nothingIsDownloaded()
    {
        const QString path = QStringLiteral("/download");
        m_services.ok().serve(path, "bytes", "application/octet-stream");
        PlayerWindow player;
        showPage(player, "<a download href='/download'>Download</a>");
        QTRY_VERIFY((player.click(), m_services.ok().answeredCount(path)) > 0);
        QCOMPARE(player.valueInPage(QStringLiteral("location.pathname")), okPage);
    }

    void aMenuOfTheBrowsersIsNotShown()
    {
        PlayerWindow player;
        showPage(player,
            "<p oncontextmenu='wanted = true'>Text</p><script>var wanted = false;</script>");
        QTRY_VERIFY(
            (player.click(Qt::RightButton), player.valueInPage(QStringLiteral("wanted"))) == true);
        QCOMPARE(windowCount(), 1);
        QVERIFY(!player.item("QQuickPopupItem"));
    }

    void nothingIsKeptOnTheDisk()
    {
        PlayerWindow player;
        showPage(player, "");
        const auto *profile = player.webView()->property("profile").value<QObject *>();
        QCOMPARE(profile->property("offTheRecord"), QVariant(true));
        (void)player.valueInPage(
            QStringLiteral("[localStorage.kept = 'kept', document.cookie = 'kept=kept']"));
        QDirIterator files(m_services.home(), QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext())
            QVERIFY(!files.next().contains(QLatin1StringView("WebEngine")));
    }

private:
    /// Shows these elements, each as large as the window, as if OK's embed page were made of them.
    void showPage(PlayerWindow &player, const QByteArray &elements)
    {
        m_services.ok().serve(okPage,
            "<!doctype html><style>html, body, body > * { margin: 0; width: 100%; height: 100%;"
            " display: block; }</style><body>"
                + elements,
            "text/html; charset=utf-8");
        player.open(okVideo);
        QTRY_VERIFY(player.valueInPage(QStringLiteral("location.pathname")) == okPage);
        QTRY_VERIFY(player.valueInPage(QStringLiteral("document.readyState"))
            == QStringLiteral("complete"));
    }

    static int windowCount()
    {
        const QWindowList windows = QGuiApplication::topLevelWindows();
        return int(std::count_if(windows.begin(), windows.end(),
            [](const QWindow *window) { return window->isVisible(); }));
    }

    OutsideBrowser m_outside;
};

ZEPH_WEB_TEST_MAIN(PageLimitsTest)
#include "tst_page_limits.moc"
