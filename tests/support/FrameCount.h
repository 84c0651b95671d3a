// Frames that a window shows.
#pragma once

#include "support/Patience.h"

#include <QQuickWindow>

/// Counts from when it is made, in the thread that makes it. The render thread tells of frames, and
/// `QSignalSpy` would count in that one.
class FrameCount {
public:
    explicit FrameCount(QQuickWindow &window)
    {
        QObject::connect(&window, &QQuickWindow::frameSwapped, &m_receiver, [this] { ++m_value; });
    }
    FrameCount(const FrameCount &) = delete;
    FrameCount &operator=(const FrameCount &) = delete;

    int value() const { return m_value; }

    /// Whether another one comes.
    [[nodiscard]] bool waitForNext() const
    {
        const int before = m_value;
        return QTest::qWaitFor([&] { return m_value > before; }, patience);
    }

private:
    int m_value = 0;
    QObject m_receiver;
};
