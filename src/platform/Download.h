// Fetches what a web address names.
#pragma once

#include "platform/Delay.h"
#include "platform/Unpacking.h"

#include <QByteArray>
#include <QFutureWatcher>
#include <QList>
#include <QNetworkAccessManager>
#include <QObject>
#include <QUrl>

#include <chrono>
#include <memory>

class QNetworkReply;

namespace zeph {

/// Where a download gives up.
struct DownloadLimits {
    /// Without a single byte from the server.
    std::chrono::milliseconds silence { 20'000 };
    /// Bytes of the body, unpacked.
    qint64 size = qint64 { 512 } << 20;
};

/// One GET over HTTP or HTTPS, which begins when it is made and ends with one of its signals, never
/// within the constructor. Redirects are followed, but not from HTTPS to HTTP; certificates are
/// verified; packed bodies are unpacked.
///
/// Destroying it ends it. From within its signals, use `deleteLater`. Main thread only.
class Download : public QObject {
    Q_OBJECT

public:
    explicit Download(const QUrl &url, DownloadLimits limits = {}, QObject *parent = nullptr);
    /// Shares its connections with others that go through `network`, which outlives it.
    Download(const QUrl &url, DownloadLimits limits, QNetworkAccessManager &network,
        QObject *parent = nullptr);
    ~Download() override;

    /// Bytes of the body that have arrived so far, packed if they are.
    qint64 receivedBytes() const { return m_receivedBytes; }
    /// The body, once it has succeeded. Empty from then on.
    QByteArray takeBody();

    /// What the user is told of something larger than `limit` bytes.
    static QString tooLargeText(qint64 limit);

Q_SIGNALS:
    void receivedBytesChanged();
    void succeeded();
    /// `errorText` is a sentence for the user.
    void failed(const QString &errorText);

private:
    void start(const QUrl &url, QNetworkAccessManager &network);
    void readHeaders();
    void readBody();
    void finish();
    void assembleBody();
    void takeAssembled();
    void fail(const QString &errorText);
    void restartSilence();
    /// 0 when the server does not tell.
    qint64 promisedBytes() const;
    int status() const;
    QString badStatusText() const;
    QString damagedText() const;

    const DownloadLimits m_limits;
    std::unique_ptr<QNetworkAccessManager> m_ownNetwork; ///< Null when it is shared.
    QNetworkReply *m_reply = nullptr;
    Delay m_silence;
    qint64 m_receivedBytes = 0;
    QList<QByteArray> m_pieces; ///< Of the body, as they arrived.
    QFutureWatcher<Unpacked> m_assembly;
    QByteArray m_body;
};

} // namespace zeph
