#include "SoakMedia.h"

#include "sources/web/WebAddresses.h"
#include "support/Files.h"

#include <QBuffer>
#include <QDir>
#include <QImage>

namespace {

const QStringList onDemand { QStringLiteral("/hls/index.m3u8"),
    QStringLiteral("/hls-colours/index.m3u8") };
const QString nothingThere = QStringLiteral("/none/index.m3u8");
const QString refused = QStringLiteral("http://127.0.0.1:9/index.m3u8");
const QString cutOff = QStringLiteral("/cut-off.mkv");
constexpr int logoCount = 5;
constexpr int longListCount = 100'000;

QByteArray logo(int index)
{
    QImage image(64, 64, QImage::Format_RGB32);
    image.fill(QColor::fromHsv(index * 70, 200, 200));
    QBuffer png;
    image.save(&png, "PNG");
    return png.data();
}

QString logoPath(int index)
{
    return QStringLiteral("/logo%1.png").arg(index);
}

QByteArray entry(int index, const QString &logo, const QString &address)
{
    static const QStringList countries { QStringLiteral("AT"), QStringLiteral("DE"),
        QStringLiteral("TR"), QString() };
    static const QStringList groups { QStringLiteral("News"), QStringLiteral("Sports"),
        QStringLiteral("Music"), QString(), QStringLiteral("Movies") };
    return QStringLiteral("#EXTINF:-1 tvg-logo=\"%1\" tvg-country=\"%2\" group-title=\"%3\","
                          "Channel %4\n%5\n")
        .arg(logo, countries[index % countries.size()], groups[index % groups.size()])
        .arg(index)
        .arg(address)
        .toUtf8();
}

} // namespace

SoakMedia::SoakMedia()
    : m_server(qEnvironmentVariable("ZEPH_CLIPS"))
    , m_station(m_folder.path())
    , m_stream(zeph::LiveStream::hls(m_folder.path()))
{
    const QDir clips(qEnvironmentVariable("ZEPH_CLIPS"));
    const QFileInfoList found = clips.entryInfoList(QDir::Files, QDir::Name);
    for (const QFileInfo &file : found)
        m_files << file.filePath();

    for (int i = 0; i < logoCount; ++i)
        m_server.serve(logoPath(i), logo(i), "image/png");
    m_server.serve(QStringLiteral("/first.m3u"), shortList(0, 40));
    m_server.serve(QStringLiteral("/second.m3u"), shortList(20, 200));
    m_server.servePacked(QStringLiteral("/packed.m3u"), shortList(7, 60));
    QByteArray list = "#EXTM3U\n";
    for (int i = 0; i < longListCount; ++i)
        list += entry(i, {}, onDemand[i % onDemand.size()] + QStringLiteral("?channel=%1").arg(i));
    m_server.serve(QStringLiteral("/long.m3u"), list);
    m_server.serveCutOff(QStringLiteral("/cut-off.m3u"), list, list.size() / 2);
    m_server.serve(QStringLiteral("/page.m3u"), "<html><body>Not here.</body></html>", "text/html");
    m_server.serveStatus(QStringLiteral("/error.m3u"), 500);
    m_server.serveCutOff(cutOff, contentOf(clips.filePath(QStringLiteral("clip.mkv"))), 60'000);
    if (!writeFile(linksFile(), shortList(0, 15)))
        qFatal("The links cannot be written");
}

QByteArray SoakMedia::shortList(int first, int count) const
{
    const QStringList addresses = streams();
    QByteArray list = "#EXTM3U\n";
    for (int i = first; i < first + count; ++i) {
        // Every sixth logo is not there.
        list += entry(i, m_server.url(logoPath(i % (logoCount + 1))).toString(),
            addresses[i % addresses.size()]);
    }
    return list;
}

QStringList SoakMedia::streams() const
{
    QStringList addresses { refused, m_server.url(nothingThere).toString(),
        m_server.url(cutOff).toString() };
    // What is watched most.
    for (int i = 0; i < 4; ++i) {
        for (const QString &path : onDemand)
            addresses << m_server.url(path).toString();
        addresses << m_station.url(QStringLiteral("/live.m3u8")).toString();
    }
    for (const QString &file : m_files)
        addresses << m_server.url(u'/' + QFileInfo(file).fileName()).toString();
    return addresses;
}

QStringList SoakMedia::shortLists() const
{
    return { m_server.url(QStringLiteral("/first.m3u")).toString(),
        m_server.url(QStringLiteral("/second.m3u")).toString(),
        m_server.url(QStringLiteral("/packed.m3u")).toString() };
}

QStringList SoakMedia::brokenLists() const
{
    return { m_server.url(QStringLiteral("/cut-off.m3u")).toString(),
        m_server.url(QStringLiteral("/page.m3u")).toString(),
        m_server.url(QStringLiteral("/error.m3u")).toString(),
        m_server.url(QStringLiteral("/none.m3u")).toString(),
        QStringLiteral("http://127.0.0.1:9/list.m3u") };
}

QStringList SoakMedia::webVideos() const
{
    return { video, otherVideo, playlist, videoInPlaylist, okVideo,
        // Not there.
        QStringLiteral("https://www.youtube.com/watch?v=ghi"),
        QStringLiteral("https://ok.ru/video/456") };
}
