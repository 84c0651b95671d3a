// A web server for one list, which knows when it has given it out.
#pragma once

#include <QString>
#include <QUrl>

#include <chrono>
#include <future>

namespace zeph::bench {

/// Answers a single request on 127.0.0.1 with a file, in a thread of its own.
class ListServer {
public:
    explicit ListServer(const QString &file);
    /// Waits until the request has come and is answered.
    ~ListServer();
    ListServer(const ListServer &) = delete;
    ListServer &operator=(const ListServer &) = delete;

    QUrl url() const;
    /// When the last byte had been handed to the system. Waits until then.
    std::chrono::steady_clock::time_point lastByte() const { return m_lastByte.get(); }

private:
    int m_listener = -1;
    std::shared_future<std::chrono::steady_clock::time_point> m_lastByte;
};

} // namespace zeph::bench
