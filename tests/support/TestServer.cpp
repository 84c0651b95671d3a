#include "support/TestServer.h"

#include <QFile>

#include <httplib.h>

#include <chrono>
#include <utility>

namespace zeph {

namespace {

constexpr auto host = "127.0.0.1";

const char *contentType(const QString &path)
{
    if (path.endsWith(QLatin1String(".m3u8")))
        return "application/vnd.apple.mpegurl";
    if (path.endsWith(QLatin1String(".ts")))
        return "video/mp2t";
    if (path.endsWith(QLatin1String(".mp4")))
        return "video/mp4";
    return "application/octet-stream";
}

} // namespace

TestServer::TestServer(QString folder, std::optional<ServerCertificate> certificate)
    : m_folder(std::move(folder)), m_certificate(std::move(certificate))
{
    start();
}

TestServer::~TestServer()
{
    stop();
}

QUrl TestServer::url(const QString &path, const QString &hostName) const
{
    QUrl url;
    url.setScheme(m_certificate ? QStringLiteral("https") : QStringLiteral("http"));
    url.setHost(hostName);
    url.setPort(m_port);
    url.setPath(path);
    return url;
}

void TestServer::start()
{
    if (m_certificate)
        m_server = std::make_unique<httplib::SSLServer>(
            qPrintable(m_certificate->certificateFile), qPrintable(m_certificate->keyFile));
    else
        m_server = std::make_unique<httplib::Server>();
    // A connection that is kept for later would hold up `stop`.
    m_server->set_keep_alive_max_count(1);
    m_server->set_pre_routing_handler([this](const auto &request, auto &response) {
        handle(request, response);
        return httplib::Server::HandlerResponse::Handled;
    });

    if (m_port == 0)
        m_port = m_server->bind_to_any_port(host);
    else if (!m_server->bind_to_port(host, m_port))
        qFatal("The port %d is taken", m_port);
    m_thread = std::thread([this] { m_server->listen_after_bind(); });
    // Before it runs it cannot be stopped.
    while (!m_server->is_running())
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

void TestServer::stop()
{
    if (!m_server)
        return;
    release();
    m_server->stop();
    m_thread.join();
    m_server.reset();
}

void TestServer::release()
{
    const QMutexLocker lock(&m_mutex);
    m_released = true;
    m_releasedChanged.wakeAll();
}

void TestServer::answer(const QString &path, Handler handler)
{
    const QMutexLocker lock(&m_mutex);
    m_handlers.insert(path, std::move(handler));
}

void TestServer::serve(const QString &path, const QByteArray &body, const QByteArray &type)
{
    answer(path, [body, type](const httplib::Request &, httplib::Response &response) {
        response.set_content(body.toStdString(), type.constData());
    });
}

void TestServer::serveFile(const QString &path)
{
    answer(path, {});
}

void TestServer::cutOff(const QString &path, qint64 bytes)
{
    QFile file(m_folder + path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("There is no %s", qPrintable(file.fileName()));
    const QByteArray body = file.readAll();
    answer(path, [body, bytes, path](const httplib::Request &, httplib::Response &response) {
        const auto provide = [body, bytes](size_t offset, size_t, httplib::DataSink &sink) {
            const auto end = static_cast<size_t>(bytes);
            if (offset < end)
                sink.write(body.constData() + offset, end - offset);
            return false;
        };
        response.set_content_provider(static_cast<size_t>(body.size()), contentType(path), provide);
    });
}

void TestServer::hang(const QString &path)
{
    answer(path, [this](const httplib::Request &, httplib::Response &response) {
        QMutexLocker lock(&m_mutex);
        while (!m_released)
            m_releasedChanged.wait(&m_mutex);
        response.status = 404;
    });
    const QMutexLocker lock(&m_mutex);
    m_released = false;
}

void TestServer::redirect(const QString &path, const QByteArray &location)
{
    answer(path, [location](const httplib::Request &, httplib::Response &response) {
        response.set_redirect(location.constData());
    });
}

int TestServer::requestCount(const QString &path) const
{
    const QMutexLocker lock(&m_mutex);
    return m_records.value(path).count;
}

QByteArray TestServer::lastHeader(const QString &path, const char *name) const
{
    const QMutexLocker lock(&m_mutex);
    return m_records.value(path).lastHeaders.value(QByteArray(name).toLower());
}

void TestServer::handle(const httplib::Request &request, httplib::Response &response)
{
    const QString path = QString::fromStdString(request.path);
    Handler handler;
    {
        const QMutexLocker lock(&m_mutex);
        Record &record = m_records[path];
        ++record.count;
        record.lastHeaders.clear();
        for (const auto &[name, value] : request.headers)
            record.lastHeaders.insert(
                QByteArray::fromStdString(name).toLower(), QByteArray::fromStdString(value));
        handler = m_handlers.value(path);
    }
    if (handler)
        handler(request, response);
    else
        sendFile(path, response);
}

void TestServer::sendFile(const QString &path, httplib::Response &response) const
{
    QFile file(m_folder + path);
    if (path.contains(QLatin1String("..")) || !file.open(QIODevice::ReadOnly)) {
        response.status = 404;
        return;
    }
    response.set_content(file.readAll().toStdString(), contentType(path));
}

} // namespace zeph
