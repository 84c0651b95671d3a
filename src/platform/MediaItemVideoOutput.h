// A look at the pictures that are shown.
#pragma once

#include <QImage>
#include <QObject>
#include <QSize>

#include <functional>
#include <memory>

namespace zeph {

class VideoTap;

/// Gives the newest picture that a `VideoLayer` has shown of the `MediaItem` that it is attached
/// to. While nobody asks it costs nothing. Main thread only.
class MediaItemVideoOutput : public QObject {
    Q_OBJECT

public:
    /// Copies are of that size, whatever the picture's shape.
    explicit MediaItemVideoOutput(QSize copySize);
    ~MediaItemVideoOutput() override;

    /// A picture has been shown since the last copy.
    bool hasNewPixelBuffer() const;
    /// Asks for a copy of the picture that is shown now; `receive` is called with it once, after
    /// the window was drawn the next time, but never with a picture that was given out before.
    /// Asking again in the meantime replaces `receive`.
    ///
    /// The copy is upright, 32 bits a pixel: in memory blue, green, red and 255. A layer that
    /// letterboxes gives its black bars, too.
    void copyPixelBuffer(std::function<void(const QImage &)> receive);
    /// Asks no longer. The picture that was not received is new again.
    void cancelCopy();

Q_SIGNALS:
    /// For the layer: a copy was asked for.
    void copyWanted();

private:
    friend class VideoLayer;

    const std::shared_ptr<VideoTap> &tap() const { return m_tap; }
    void deliverCopy();

    const std::shared_ptr<VideoTap> m_tap;
    std::function<void(const QImage &)> m_receive;
};

} // namespace zeph
