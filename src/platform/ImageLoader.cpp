#include "platform/ImageLoader.h"

#include "platform/ImageDecoding.h"

#include <QFutureWatcher>
#include <QPointer>
#include <QtConcurrent>

#include <algorithm>
#include <utility>

namespace zeph {

namespace {

constexpr int decoderThreads = 2;
/// What it takes to remember a picture, or that there is none, besides its pixels.
constexpr qsizetype cacheEntryBytes = 512;
/// After which one that could not be had is asked for again.
constexpr std::chrono::minutes failureValidity { 1 };

} // namespace

/// One picture that is being fetched, and those who wait for it.
class ImageLoad : public QObject {
public:
    ImageLoad(ImageLoader &loader, ImageLoader::Key wanted)
        : QObject(&loader), key(std::move(wanted)), m_loader(loader)
    {
    }

    void start()
    {
        m_isStarted = true;
        m_download = std::make_unique<Download>(
            key.url, DownloadLimits { .size = imageFileSizeLimit }, m_loader.network());
        connect(m_download.get(), &Download::succeeded, this, [this] { decode(); });
        connect(m_download.get(), &Download::failed, this, [this] { finish({}); });
        connect(&m_decoding, &QFutureWatcherBase::finished, this,
            [this] { finish(m_decoding.result()); });
        m_timeout.start(m_loader.m_limits.time, [this] { finish({}); });
    }
    bool isStarted() const { return m_isStarted; }
    /// Nothing is heard of it any more.
    void stop()
    {
        m_timeout.cancel();
        m_decoding.disconnect(this);
        m_decoding.cancel();
        if (m_download)
            m_download->disconnect(this);
        // It may be telling of its end.
        deleteLater();
    }

    const ImageLoader::Key key;
    QList<QPointer<ImageRequest>> requests;

private:
    void decode()
    {
        m_timeout.cancel();
        m_decoding.setFuture(QtConcurrent::run(
            &m_loader.m_decoders, decodeImage, m_download->takeBody(), key.bounds));
    }
    void finish(const QImage &image) { m_loader.finish(*this, image); }

    ImageLoader &m_loader;
    bool m_isStarted = false;
    std::unique_ptr<Download> m_download;
    Delay m_timeout;
    QFutureWatcher<QImage> m_decoding;
};

ImageLoader::ImageLoader(QObject *parent) : ImageLoader(Limits(), parent) { }

ImageLoader::ImageLoader(Limits limits, QObject *parent)
    : QObject(parent), m_limits(limits), m_cache(limits.cache)
{
    m_decoders.setMaxThreadCount(decoderThreads);
}

ImageLoader::~ImageLoader()
{
    qDeleteAll(QObjectList(children())); // They use what is destroyed next.
}

std::optional<QImage> ImageLoader::remembered(const Key &key)
{
    const Remembered *found = m_cache.object(key);
    if (!found || found->validity.hasExpired())
        return std::nullopt;
    return found->image;
}

void ImageLoader::remember(const Key &key, const QImage &image)
{
    auto *entry = new Remembered { image };
    if (image.isNull())
        entry->validity = QDeadlineTimer(failureValidity);
    m_cache.insert(key, entry, cacheEntryBytes + image.sizeInBytes());
}

void ImageLoader::add(ImageRequest &request)
{
    ImageLoad *&load = m_loads[request.m_key];
    if (!load) {
        load = new ImageLoad(*this, request.m_key);
        m_waiting.push_back(load);
    }
    load->requests << &request;
    startNext();
}

void ImageLoader::remove(ImageRequest &request)
{
    ImageLoad *load = m_loads.value(request.m_key);
    if (!load || !load->requests.removeOne(&request) || !load->requests.isEmpty())
        return;
    end(*load);
    startNext();
}

/// Making it takes its time, which the start of the program is not to wait for.
QNetworkAccessManager &ImageLoader::network()
{
    return m_network ? *m_network : m_network.emplace();
}

void ImageLoader::startNext()
{
    while (m_running < m_limits.downloads && !m_waiting.empty()) {
        ImageLoad *load = m_waiting.front();
        m_waiting.pop_front();
        ++m_running;
        load->start();
    }
}

void ImageLoader::finish(ImageLoad &load, const QImage &image)
{
    remember(load.key, image);
    const auto requests = std::exchange(load.requests, {});
    end(load);
    startNext();
    for (const QPointer<ImageRequest> &request : requests) {
        if (request)
            request->finish(image);
    }
}

void ImageLoader::end(ImageLoad &load)
{
    m_loads.remove(load.key);
    if (load.isStarted())
        --m_running;
    else
        std::erase(m_waiting, &load);
    load.stop();
}

ImageRequest::ImageRequest(ImageLoader &loader, const QUrl &url, QSize bounds, QObject *parent)
    : QObject(parent), m_loader(loader), m_key { url, bounds }
{
    if (const auto image = m_loader.remembered(m_key)) {
        finish(*image);
    } else if (url.isLocalFile()) {
        const auto bytes = readImageFile(url.toLocalFile());
        const QImage read = bytes ? decodeImage(*bytes, bounds) : QImage();
        m_loader.remember(m_key, read);
        finish(read);
    } else {
        m_loader.add(*this);
    }
}

ImageRequest::~ImageRequest()
{
    m_loader.remove(*this);
}

void ImageRequest::finish(const QImage &image)
{
    m_isFinished = true;
    m_image = image;
    Q_EMIT finished();
}

} // namespace zeph
