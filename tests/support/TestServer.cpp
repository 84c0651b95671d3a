#include "support/TestServer.h"

#include <QFile>
#include <QProcess>

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

// Sends what is made while it is sent, and so has no parts to be asked for: newer versions of the
// library would refuse it to players, which ask for the part that begins at the start.
template <typename Send>
void sendInChunks(
    const httplib::Request &request, httplib::Response &response, const QString &path, Send send)
{
    const_cast<httplib::Request &>(request).ranges.clear();
    response.set_chunked_content_provider(contentType(path), std::move(send));
}

QByteArray gzip(const QByteArray &bytes)
{
    QProcess process;
    process.start(QStringLiteral("gzip"), { QStringLiteral("--stdout") });
    process.write(bytes);
    process.closeWriteChannel();
    if (!process.waitForFinished() || process.exitCode() != 0)
        qFatal("gzip: %s", process.readAllStandardError().constData());
    return process.readAllStandardOutput();
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
    m_server->set_logger([this](const auto &request, const auto &) { countAnswer(request); });
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
    m_held.clear();
    m_heldChanged.wakeAll();
}

void TestServer::answer(const QString &path, const Handler &handler)
{
    const QMutexLocker lock(&m_mutex);
    m_handlers.insert(path, handler);
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
    serveCutOff(path, file.readAll(), bytes);
}

void TestServer::serveCutOff(const QString &path, const QByteArray &body, qint64 bytes)
{
    answer(path, [=](const httplib::Request &, httplib::Response &response) {
        response.set_content_provider(static_cast<size_t>(body.size()), contentType(path),
            [body, end = static_cast<size_t>(bytes)](
                size_t offset, size_t, httplib::DataSink &sink) {
                if (offset < end)
                    sink.write(body.constData() + offset, end - offset);
                return false;
            });
    });
}

void TestServer::servePacked(const QString &path, const QByteArray &body)
{
    const QByteArray packed = gzip(body);
    answer(path, [path, packed](const httplib::Request &, httplib::Response &response) {
        response.set_content(packed.toStdString(), contentType(path));
        response.set_header("Content-Encoding", "gzip");
    });
}

void TestServer::serveChunks(
    const QString &path, const QList<QByteArray> &chunks, std::chrono::milliseconds interval)
{
    answer(path, [=](const httplib::Request &request, httplib::Response &response) {
        const auto sendAll = [=](size_t, httplib::DataSink &sink) {
            for (const QByteArray &chunk : chunks) {
                if (!sink.write(chunk.constData(), static_cast<size_t>(chunk.size())))
                    return false;
                std::this_thread::sleep_for(interval);
            }
            sink.done();
            return true;
        };
        sendInChunks(request, response, path, sendAll);
    });
}

void TestServer::serveEndlessly(const QString &path, const QByteArray &piece)
{
    answer(path, [=](const httplib::Request &request, httplib::Response &response) {
        const auto sendPiece = [piece](size_t, httplib::DataSink &sink) {
            return sink.write(piece.constData(), static_cast<size_t>(piece.size()));
        };
        sendInChunks(request, response, path, sendPiece);
    });
}

void TestServer::stallAfter(const QString &path, const QByteArray &start, const QByteArray &rest)
{
    answer(path, [=, this](const httplib::Request &request, httplib::Response &response) {
        const auto sendUntilCut = [=, this](size_t, httplib::DataSink &sink) {
            sink.write(start.constData(), static_cast<size_t>(start.size()));
            waitUntilReleased();
            if (!rest.isEmpty())
                sink.write(rest.constData(), static_cast<size_t>(rest.size()));
            return false;
        };
        sendInChunks(request, response, path, sendUntilCut);
    });
    const QMutexLocker lock(&m_mutex);
    m_released = false;
}

void TestServer::pauseWithin(const QString &path, const QByteArray &body, double part)
{
    answer(path, [=, this](const httplib::Request &request, httplib::Response &response) {
        const auto send = [=, this](size_t, httplib::DataSink &sink) {
            const auto first = static_cast<size_t>(part * static_cast<double>(body.size()));
            sink.write(body.constData(), first);
            waitUntilReleased();
            sink.write(body.constData() + first, static_cast<size_t>(body.size()) - first);
            sink.done();
            return true;
        };
        sendInChunks(request, response, path, send);
    });
    const QMutexLocker lock(&m_mutex);
    m_released = false;
}

void TestServer::serveStatus(const QString &path, int status)
{
    answer(path, [status](const httplib::Request &, httplib::Response &response) {
        response.status = status;
        if (status != 204)
            response.set_content("<!doctype html><title>Sorry</title>", "text/html");
    });
}

void TestServer::setStatus(const QString &path, int status)
{
    change(path, [status](httplib::Response &response) { response.status = status; });
}

void TestServer::addHeader(const QString &path, const QByteArray &name, const QByteArray &value)
{
    change(path, [name, value](httplib::Response &response) {
        response.set_header(name.constData(), value.toStdString());
    });
}

void TestServer::change(const QString &path, std::function<void(httplib::Response &)> change)
{
    const QMutexLocker lock(&m_mutex);
    m_handlers[path] = [handler = m_handlers.value(path), change = std::move(change)](
                           const httplib::Request &request, httplib::Response &response) {
        handler(request, response);
        change(response);
    };
}

void TestServer::serveTo(
    const QString &path, const QByteArray &user, const QByteArray &password, const QByteArray &body)
{
    const QByteArray expected = "Basic " + (user + ':' + password).toBase64();
    answer(path, [=](const httplib::Request &request, httplib::Response &response) {
        if (request.get_header_value("Authorization") == expected.toStdString()) {
            response.set_content(body.toStdString(), contentType(path));
        } else {
            response.status = 401;
            response.set_header("WWW-Authenticate", "Basic realm=\"test\"");
            response.set_content("<!doctype html><title>Who are you?</title>", "text/html");
        }
    });
}

void TestServer::hang(const QString &path)
{
    answer(path, [this](const httplib::Request &, httplib::Response &response) {
        waitUntilReleased();
        response.status = 404;
    });
    const QMutexLocker lock(&m_mutex);
    m_released = false;
}

void TestServer::waitUntilReleased()
{
    QMutexLocker lock(&m_mutex);
    while (!m_released)
        m_releasedChanged.wait(&m_mutex);
}

void TestServer::hold(const QString &path)
{
    const QMutexLocker lock(&m_mutex);
    m_held.insert(path);
}

void TestServer::letGo(const QString &path)
{
    const QMutexLocker lock(&m_mutex);
    m_held.remove(path);
    m_heldChanged.wakeAll();
}

void TestServer::redirect(const QString &path, const QByteArray &location, int status)
{
    answer(path, [location, status](const httplib::Request &, httplib::Response &response) {
        response.set_redirect(location.constData(), status);
    });
}

int TestServer::answeredCount(const QString &path) const
{
    const QMutexLocker lock(&m_mutex);
    return m_records.value(path).answered;
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
        while (m_held.contains(path))
            m_heldChanged.wait(&m_mutex);
    }
    if (handler)
        handler(request, response);
    else
        sendFile(path, response);
}

void TestServer::countAnswer(const httplib::Request &request)
{
    const QMutexLocker lock(&m_mutex);
    ++m_records[QString::fromStdString(request.path)].answered;
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
