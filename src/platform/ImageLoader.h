// Pictures from the web and from files, for lists that show many.
#pragma once

#include "platform/Download.h"

#include <QCache>
#include <QDeadlineTimer>
#include <QHash>
#include <QImage>
#include <QNetworkAccessManager>
#include <QThreadPool>

#include <deque>
#include <optional>

namespace zeph {

class ImageLoad;
class ImageRequest;

/// Loads what ImageRequests ask for, each picture once for all that ask for it, a few at a time,
/// and remembers the last ones. Outlives the requests. Main thread only.
class ImageLoader : public QObject {
    Q_OBJECT

public:
    struct Limits {
        /// At once.
        int downloads = 6;
        /// Of pictures that are remembered, in bytes.
        qsizetype cache = qsizetype { 24 } << 20;
        /// For one download, however much still arrives.
        std::chrono::milliseconds time { 30'000 };
    };

    explicit ImageLoader(QObject *parent = nullptr);
    explicit ImageLoader(Limits limits, QObject *parent = nullptr);
    ~ImageLoader() override;

    /// Whether a request for this would finish at once.
    bool remembers(const QUrl &url, QSize bounds)
    {
        return remembered({ url, bounds }).has_value();
    }
    /// Bytes of the pictures that are remembered.
    qsizetype cachedBytes() const { return m_cache.totalCost(); }
    /// Downloads under way.
    int downloadCount() const { return m_running; }

private:
    friend class ImageLoad;
    friend class ImageRequest;

    struct Key {
        QUrl url;
        QSize bounds;

        bool operator==(const Key &) const = default;
        friend size_t qHash(const Key &key, size_t seed = 0)
        {
            return qHashMulti(seed, key.url, key.bounds.width(), key.bounds.height());
        }
    };
    struct Remembered {
        QImage image; ///< Null when there is none.
        QDeadlineTimer validity { QDeadlineTimer::Forever };
    };

    /// Nothing when it is not known what is there.
    std::optional<QImage> remembered(const Key &key);
    void remember(const Key &key, const QImage &image);
    void add(ImageRequest &request);
    void remove(ImageRequest &request);
    QNetworkAccessManager &network();
    void startNext();
    void finish(ImageLoad &load, const QImage &image);
    void end(ImageLoad &load);

    const Limits m_limits;
    std::optional<QNetworkAccessManager> m_network; ///< From the first download on.
    QThreadPool m_decoders;
    QCache<Key, Remembered> m_cache;
    QHash<Key, ImageLoad *> m_loads; ///< Waiting or under way.
    std::deque<ImageLoad *> m_waiting;
    int m_running = 0;
};

/// Asks for one picture, from when it is made until it is destroyed, which cancels it.
class ImageRequest : public QObject {
    Q_OBJECT

public:
    /// The picture at `url`, scaled down to lie within `bounds` (pixels). A `file` address is read
    /// at once. Others have to be of the web.
    ImageRequest(ImageLoader &loader, const QUrl &url, QSize bounds, QObject *parent = nullptr);
    ~ImageRequest() override;

    bool isFinished() const { return m_isFinished; }
    /// Null before it has finished, and when there is no picture.
    const QImage &image() const { return m_image; }

Q_SIGNALS:
    /// Never within the constructor, after which it may have finished already. The request may be
    /// destroyed by who gets it.
    void finished();

private:
    friend class ImageLoader;

    void finish(const QImage &image);

    ImageLoader &m_loader;
    const ImageLoader::Key m_key;
    bool m_isFinished = false;
    QImage m_image;
};

} // namespace zeph
