#include "ListServer.h"

#include <QFile>

#include <fcntl.h>
#include <netinet/in.h>
#include <string>
#include <sys/sendfile.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zeph::bench {

using Clock = std::chrono::steady_clock;

namespace {

Clock::time_point answer(int listener, int file)
{
    const int client = ::accept(listener, nullptr, nullptr);
    char part = 0;
    std::string request;
    while (!request.ends_with("\r\n\r\n") && ::read(client, &part, 1) == 1)
        request += part;

    struct stat status { };
    ::fstat(file, &status);
    const std::string head = "HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Length: "
        + std::to_string(status.st_size) + "\r\n\r\n";
    ::send(client, head.data(), head.size(), MSG_NOSIGNAL);
    off_t sent = 0;
    while (sent<status.st_size && ::sendfile(
            client, file, &sent, static_cast<std::size_t>(status.st_size - sent))> 0) { }
    const auto end = Clock::now();
    ::close(client);
    ::close(file);
    return end;
}

} // namespace

ListServer::ListServer(const QString &file) : m_listener(::socket(AF_INET, SOCK_STREAM, 0))
{
    sockaddr_in address {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (::bind(m_listener, reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0
        || ::listen(m_listener, 1) != 0)
        qFatal("There is no port to serve a list on.");
    const int descriptor = ::open(QFile::encodeName(file).constData(), O_RDONLY);
    m_lastByte = std::async(std::launch::async, answer, m_listener, descriptor).share();
}

ListServer::~ListServer()
{
    m_lastByte.wait();
    ::close(m_listener);
}

QUrl ListServer::url() const
{
    sockaddr_in address {};
    socklen_t size = sizeof address;
    ::getsockname(m_listener, reinterpret_cast<sockaddr *>(&address), &size);
    QUrl url(QStringLiteral("http://127.0.0.1/list.m3u"));
    url.setPort(ntohs(address.sin_port));
    return url;
}

} // namespace zeph::bench
