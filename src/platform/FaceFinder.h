// What the program and the module that finds faces share.
#pragma once

#include <QImage>
#include <QList>
#include <QRectF>

namespace zeph {

/// One thread at a time.
class FaceFinder {
public:
    virtual ~FaceFinder() = default;

    /// See `FaceDetector`.
    virtual QList<QRectF> faces(const QImage &picture) = 0;
};

/// Of that type, and by that name, the module has a function. It answers with an object that the
/// caller deletes; null when the model cannot be read.
using CreateFaceFinder = FaceFinder *();
inline constexpr char createFaceFinderName[] = "zephCreateFaceFinder";

} // namespace zeph
