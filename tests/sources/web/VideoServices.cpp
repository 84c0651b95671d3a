#include "VideoServices.h"

#include "WebAddresses.h"

#include <QDir>
#include <QFile>
#include <QProcess>

using namespace zeph;

namespace {

const QString youTubeHost = QStringLiteral("www.youtube.com");
const QString okHost = QStringLiteral("ok.ru");
const QString strangerHost = QStringLiteral("stranger.example");

QByteArray contents(const QString &name)
{
    QFile file(QStringLiteral(ZEPH_STAND_IN_SERVICES "/") + name);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("There is no %s", qPrintable(file.fileName()));
    return file.readAll();
}

void certutil(const QStringList &arguments)
{
    if (QProcess::execute(QStringLiteral("certutil"), arguments) != 0)
        qFatal("certutil failed");
}

// The browser trusts what the user's certificate database does.
void trust(const QString &home, const QString &certificateFile)
{
    const QString folder = home + QStringLiteral("/.pki/nssdb");
    QDir().mkpath(folder);
    const QString database = QStringLiteral("sql:") + folder;
    certutil({ QStringLiteral("-N"), QStringLiteral("-d"), database,
        QStringLiteral("--empty-password") });
    certutil({ QStringLiteral("-A"), QStringLiteral("-d"), database, QStringLiteral("-t"),
        QStringLiteral("C,,"), QStringLiteral("-n"), QStringLiteral("test"), QStringLiteral("-i"),
        certificateFile });
}

QByteArray mapping(const QString &host, const TestServer &server)
{
    const QUrl url = server.url(QStringLiteral("/"));
    return "MAP " + host.toUtf8() + ' ' + url.host().toUtf8() + ':'
        + QByteArray::number(url.port());
}

} // namespace

VideoServices::VideoServices()
{
    const QString clips = qEnvironmentVariable("ZEPH_CLIPS");
    m_youTube.emplace(clips, m_authority.certify(youTubeHost));
    m_ok.emplace(clips, m_authority.certify(okHost));
    m_stranger.emplace(clips, m_unknownAuthority.certify(strangerHost));
    restore();

    trust(m_home.path(), m_authority.certificateFile());
    qputenv("HOME", m_home.path().toUtf8());
    // No other address is ever looked up.
    qputenv("QTWEBENGINE_CHROMIUM_FLAGS",
        "--host-resolver-rules=\"" + mapping(youTubeHost, *m_youTube) + ", "
            + mapping(okHost, *m_ok) + ", " + mapping(strangerHost, *m_stranger)
            + ", MAP * ~NOTFOUND\"");
    // The browser does not sandbox pages for root, as whom tests may run.
    qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
}

void VideoServices::restore()
{
    const QByteArray html = "text/html; charset=utf-8";
    m_youTube->serve(playerScript, contents(QStringLiteral("iframe_api.js")), "text/javascript");
    for (const QString &path : { videoPage, otherVideoPage, playlistPage })
        m_youTube->serve(path, contents(QStringLiteral("embed.html")), html);
    m_ok->serve(okPage, contents(QStringLiteral("videoembed.html")), html);
}
