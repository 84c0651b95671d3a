// What the main thread and the render thread share to copy pictures.
#pragma once

#include <QImage>
#include <QMutex>
#include <QSize>

#include <utility>

namespace zeph {

/// The render thread tells of each picture that it shows, and makes a copy when one is wanted; the
/// main thread asks, and takes the copy. No picture is copied twice.
class VideoTap {
public:
    explicit VideoTap(QSize sizeOfCopies) : copySize(sizeOfCopies) { }

    const QSize copySize;

    // For the main thread.
    bool hasNewPicture() const
    {
        const QMutexLocker lock(&m_mutex);
        return m_hasNewPicture;
    }

    void wantCopy()
    {
        const QMutexLocker lock(&m_mutex);
        m_isCopyWanted = true;
    }
    /// As if none had been wanted: a picture whose copy nobody has taken is new again.
    void dropCopy()
    {
        const QMutexLocker lock(&m_mutex);
        m_isCopyWanted = false;
        m_hasNewPicture = m_hasNewPicture || !m_copy.isNull();
        m_copy = {};
    }
    /// Null when there is none. One that was asked for in the meantime is this one.
    QImage takeCopy()
    {
        const QMutexLocker lock(&m_mutex);
        if (!m_copy.isNull())
            m_isCopyWanted = false;
        return std::exchange(m_copy, {});
    }

    // For the render thread.
    void pictureShown()
    {
        const QMutexLocker lock(&m_mutex);
        m_hasNewPicture = true;
    }
    bool isCopyDue() const
    {
        const QMutexLocker lock(&m_mutex);
        return m_isCopyWanted && m_hasNewPicture;
    }
    /// Not taken when it is no longer wanted.
    void putCopy(QImage copy)
    {
        const QMutexLocker lock(&m_mutex);
        if (!std::exchange(m_isCopyWanted, false))
            return;
        m_hasNewPicture = false;
        m_copy = std::move(copy);
    }

private:
    mutable QMutex m_mutex;
    bool m_hasNewPicture = false;
    bool m_isCopyWanted = false;
    QImage m_copy;
};

} // namespace zeph
