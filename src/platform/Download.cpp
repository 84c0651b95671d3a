#include "platform/Download.h"

#include "platform/CertificateAuthorities.h"
#include "platform/WebScheme.h"

#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSslConfiguration>
#include <QtConcurrent>

#include <utility>

namespace zeph {

namespace {

constexpr int firstSuccess = 200;
constexpr int firstRedirect = 300;
constexpr int firstError = 400;

// How far the network may run ahead of us.
constexpr qint64 readBufferSize = 1 << 20;
// The body is kept in pieces of about this size: one that grew would be copied again and again.
constexpr qsizetype pieceSize = 1 << 20;

QNetworkRequest requestFor(const QUrl &url)
{
    QNetworkRequest request(url);
    request.setAttribute(
        QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    // Said here, it leaves the unpacking to us: the network classes would do it on this thread, and
    // would take a list that repeats itself, and so packs well, for an attack.
    request.setRawHeader("Accept-Encoding", "gzip");
    if (!certificateAuthorityFile().isEmpty()) {
        QSslConfiguration security = request.sslConfiguration();
        security.setCaCertificates(certificateAuthorities());
        request.setSslConfiguration(security);
    }
    return request;
}

} // namespace

Download::Download(const QUrl &url, DownloadLimits limits, QObject *parent)
    : QObject(parent), m_limits(limits), m_ownNetwork(std::make_unique<QNetworkAccessManager>())
{
    start(url, *m_ownNetwork);
}

Download::Download(
    const QUrl &url, DownloadLimits limits, QNetworkAccessManager &network, QObject *parent)
    : QObject(parent), m_limits(limits)
{
    start(url, network);
}

void Download::start(const QUrl &url, QNetworkAccessManager &network)
{
    connect(&m_assembly, &QFutureWatcherBase::finished, this, &Download::takeAssembled);
    if (!hasWebScheme(url)) {
        const auto refuse = [this] { Q_EMIT failed(tr("The address is not one of the web.")); };
        QMetaObject::invokeMethod(this, refuse, Qt::QueuedConnection);
        return;
    }
    m_reply = network.get(requestFor(url));
    m_reply->setReadBufferSize(readBufferSize);
    connect(m_reply, &QNetworkReply::encrypted, this, &Download::restartSilence);
    connect(m_reply, &QNetworkReply::redirected, this, &Download::restartSilence);
    connect(m_reply, &QNetworkReply::metaDataChanged, this, &Download::readHeaders);
    connect(m_reply, &QNetworkReply::readyRead, this, &Download::readBody);
    connect(m_reply, &QNetworkReply::finished, this, &Download::finish);
    restartSilence();
}

Download::~Download()
{
    if (!m_reply)
        return;
    m_reply->disconnect(this);
    delete m_reply;
}

QByteArray Download::takeBody()
{
    return std::exchange(m_body, {});
}

void Download::readHeaders()
{
    restartSilence();
    // What follows an error is a page about it, which need not ever end.
    if (status() >= firstError)
        fail(badStatusText());
    else if (promisedBytes() > m_limits.size)
        fail(tooLargeText(m_limits.size));
}

void Download::readBody()
{
    restartSilence();
    const QByteArray bytes = m_reply->readAll();
    m_receivedBytes += bytes.size();
    if (m_receivedBytes > m_limits.size) {
        fail(tooLargeText(m_limits.size));
        return;
    }
    if (m_pieces.isEmpty() || m_pieces.constLast().size() >= pieceSize)
        m_pieces.emplaceBack();
    m_pieces.last() += bytes;
    Q_EMIT receivedBytesChanged();
}

void Download::finish()
{
    m_silence.cancel();
    if (m_reply->error() != QNetworkReply::NoError)
        fail(m_reply->errorString());
    else if (status() < firstSuccess || status() >= firstRedirect)
        fail(badStatusText());
    else if (m_receivedBytes < promisedBytes())
        fail(tr("The connection was closed."));
    else
        assembleBody();
}

void Download::assembleBody()
{
    const QByteArray encoding = m_reply->rawHeader("Content-Encoding").trimmed().toLower();
    auto pieces = std::exchange(m_pieces, {});
    if (encoding.isEmpty() || encoding == "identity" || pieces.isEmpty())
        m_assembly.setFuture(QtConcurrent::run(join, std::move(pieces)));
    else if (encoding == "gzip" || encoding == "x-gzip" || encoding == "deflate")
        m_assembly.setFuture(QtConcurrent::run(unpack, std::move(pieces), m_limits.size));
    else
        fail(damagedText());
}

void Download::takeAssembled()
{
    Unpacked assembled = m_assembly.future().takeResult();
    switch (assembled.error) {
    case UnpackingError::none:
        m_body = std::move(assembled.bytes);
        Q_EMIT succeeded();
        break;
    case UnpackingError::damaged:
        fail(damagedText());
        break;
    case UnpackingError::tooLarge:
        fail(tooLargeText(m_limits.size));
        break;
    }
}

void Download::fail(const QString &errorText)
{
    m_silence.cancel();
    // Not aborted here: the reply may be about to tell of an error itself, and would complain of
    // two.
    m_reply->disconnect(this);
    std::exchange(m_reply, nullptr)->deleteLater();
    m_pieces = {};
    Q_EMIT failed(errorText);
}

void Download::restartSilence()
{
    m_silence.start(m_limits.silence, [this] { fail(tr("The request timed out.")); });
}

// Qt itself takes an answer for whole that ends right after its beginning.
qint64 Download::promisedBytes() const
{
    // What is sent in chunks has no other length, whatever is said.
    if (m_reply->hasRawHeader("Transfer-Encoding"))
        return 0;
    return m_reply->header(QNetworkRequest::ContentLengthHeader).toLongLong();
}

int Download::status() const
{
    return m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

QString Download::badStatusText() const
{
    return tr("There was a bad response from the server (status %1).").arg(status());
}

QString Download::damagedText() const
{
    return tr("The server's answer could not be unpacked.");
}

QString Download::tooLargeText(qint64 limit)
{
    return tr("The file is larger than %1 MiB.").arg(limit >> 20);
}

} // namespace zeph
