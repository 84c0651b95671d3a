#include "support/LiveStream.h"

#include <arpa/inet.h>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace zeph {

LiveStream::LiveStream(const QStringList &output)
{
    const QString input =
        QStringLiteral("-v error -nostdin -y -re -f lavfi -i testsrc2=size=320x180:rate=25 "
                       "-c:v libx264 -preset ultrafast -tune zerolatency -pix_fmt yuv420p -g 25");
    m_ffmpeg.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_ffmpeg.start(QStringLiteral("ffmpeg"), input.split(QLatin1Char(' ')) + output);
    if (!m_ffmpeg.waitForStarted())
        qFatal("ffmpeg cannot be started");
}

QStringList LiveStream::hls(const QString &folder)
{
    return { QStringLiteral("-f"), QStringLiteral("hls"), QStringLiteral("-hls_time"),
        QStringLiteral("1"), QStringLiteral("-hls_list_size"), QStringLiteral("4"),
        QStringLiteral("-hls_flags"), QStringLiteral("delete_segments"),
        folder + QStringLiteral("/live.m3u8") };
}

LiveStream::~LiveStream()
{
    m_ffmpeg.kill();
    m_ffmpeg.waitForFinished();
}

void LiveStream::stall()
{
    ::kill(static_cast<pid_t>(m_ffmpeg.processId()), SIGSTOP);
}

void LiveStream::goOn()
{
    ::kill(static_cast<pid_t>(m_ffmpeg.processId()), SIGCONT);
}

void LiveStream::end()
{
    m_ffmpeg.terminate();
    if (!m_ffmpeg.waitForFinished())
        qFatal("ffmpeg does not end");
}

int freePort()
{
    const int socket = ::socket(AF_INET, SOCK_DGRAM, 0);
    sockaddr_in address {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    if (::bind(socket, reinterpret_cast<sockaddr *>(&address), length) != 0
        || ::getsockname(socket, reinterpret_cast<sockaddr *>(&address), &length) != 0)
        qFatal("There is no free port");
    ::close(socket);
    return ntohs(address.sin_port);
}

} // namespace zeph
