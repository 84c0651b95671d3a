// Faces in pictures.
#pragma once

#include <QImage>
#include <QList>
#include <QRectF>
#include <QSize>

#include <memory>

namespace zeph {

/// Finds faces from about 6 % of a picture's height. What that needs is some 20 MB of libraries and
/// is loaded in the background when it is asked for first. Main thread only.
class FaceDetector {
public:
    /// Pictures of that size, into which others are squeezed, are what it looks at.
    static constexpr QSize pictureSize { 320, 240 };

    virtual ~FaceDetector() = default;

    /// Ready when the libraries are there and have been tried once. Also when they cannot be
    /// loaded: then there are no faces, and the reason is a warning, once in the life of the
    /// process.
    virtual bool isReady() = 0;
    /// The faces in a picture of 32 bits a pixel, as parts of its width and height, 0…1 from the
    /// upper left. The surest comes first. None when detection fails, or before it is ready.
    virtual QList<QRectF> faces(const QImage &picture) = 0;

    /// The one that the program shares for as long as anyone holds on to it. Begins to load.
    static std::shared_ptr<FaceDetector> shared();
};

} // namespace zeph
