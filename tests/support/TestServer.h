// A web server for tests.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QMutex>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QWaitCondition>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <thread>

namespace httplib {
class Server;
struct Request;
struct Response;
} // namespace httplib

namespace zeph {

/// A certificate and its private key, in PEM files.
struct ServerCertificate {
    QString certificateFile;
    QString keyFile;
};

/// Serves the files of a folder on a free port of 127.0.0.1, with range requests, from the moment
/// it is made; over https when it is given a certificate. Single paths can be made to misbehave.
/// Its functions may be called from any one thread.
class TestServer {
public:
    explicit TestServer(QString folder, std::optional<ServerCertificate> certificate = {});
    ~TestServer();
    TestServer(const TestServer &) = delete;
    TestServer &operator=(const TestServer &) = delete;

    /// `path` begins with "/".
    QUrl url(const QString &path, const QString &host = QStringLiteral("127.0.0.1")) const;

    /// Answers at `path` with these bytes instead of a file.
    void serve(const QString &path, const QByteArray &body,
        const QByteArray &type = "application/octet-stream");
    /// Answers at `path` with the file again.
    void serveFile(const QString &path);
    /// Promises the whole file, but hangs up after its first `bytes`, each time.
    void cutOff(const QString &path, qint64 bytes);
    /// The same for any bytes.
    void serveCutOff(const QString &path, const QByteArray &body, qint64 bytes);
    /// Answers with the gzipped form of `body`.
    void servePacked(const QString &path, const QByteArray &body);
    /// Answers in chunks, which are `interval` apart.
    void serveChunks(const QString &path, const QList<QByteArray> &chunks,
        std::chrono::milliseconds interval = {});
    /// Answers with `piece` again and again.
    void serveEndlessly(const QString &path, const QByteArray &piece);
    /// Sends `start` in a chunk and then nothing more until `release`; after that `rest`, and hangs
    /// up without having said that this was all.
    void stallAfter(const QString &path, const QByteArray &start, const QByteArray &rest = {});
    /// Sends this part of `body`, and the rest after `release`.
    void pauseWithin(const QString &path, const QByteArray &body, double part);
    /// Answers with a status and a page about it.
    void serveStatus(const QString &path, int status);
    /// Changes the answers at `path`, however they are given.
    void setStatus(const QString &path, int status);
    void addHeader(const QString &path, const QByteArray &name, const QByteArray &value);
    /// Answers 401 until the request names this user.
    void serveTo(const QString &path, const QByteArray &user, const QByteArray &password,
        const QByteArray &body);
    /// Takes the request and says nothing until `release`.
    void hang(const QString &path);
    /// Answers the requests that hang, now and from now on, with 404.
    void release();
    /// Takes requests for `path` but answers only after `letGo`.
    void hold(const QString &path);
    void letGo(const QString &path);
    void redirect(const QString &path, const QByteArray &location, int status = 302);

    /// Ends all connections and refuses new ones.
    void stop();
    /// Comes back on the same port.
    void start();

    int requestCount(const QString &path) const;
    /// A header of the last request for `path`.
    QByteArray lastHeader(const QString &path, const char *name) const;
    /// Requests for `path` that have got their whole answer, or whose client has gone.
    int answeredCount(const QString &path) const;

private:
    using Handler = std::function<void(const httplib::Request &, httplib::Response &)>;
    struct Record {
        int count = 0;
        int answered = 0;
        QHash<QByteArray, QByteArray> lastHeaders; ///< By lower-case name.
    };

    void answer(const QString &path, const Handler &handler);
    void change(const QString &path, std::function<void(httplib::Response &)> change);
    void handle(const httplib::Request &request, httplib::Response &response);
    void countAnswer(const httplib::Request &request);
    void waitUntilReleased();
    void sendFile(const QString &path, httplib::Response &response) const;

    const QString m_folder;
    const std::optional<ServerCertificate> m_certificate;
    int m_port = 0;
    std::unique_ptr<httplib::Server> m_server;
    std::thread m_thread;

    mutable QMutex m_mutex; ///< Guards all below.
    QWaitCondition m_releasedChanged;
    bool m_released = false;
    QSet<QString> m_held;
    QWaitCondition m_heldChanged;
    QHash<QString, Handler> m_handlers;
    QHash<QString, Record> m_records;
};

} // namespace zeph
