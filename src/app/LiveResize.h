// Whether a window is being resized.
#pragma once

#include "platform/Delay.h"

#include <QObject>
#include <QPointer>
#include <QWindow>

namespace zeph {

/// Notices that somebody changes the size of a window bit by bit: the user at its edge, or the
/// window manager on the way out of full screen. No protocol tells, so a change counts as one of
/// several until none has followed for a while. Main thread only.
class LiveResize : public QObject {
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds settled { 250 };

    using QObject::QObject;

    /// Null watches none.
    void setWindow(QWindow *window);
    bool isUnderWay() const { return m_end.isPending(); }

    /// Takes a change that is about to be made as one that stands for itself.
    void setGeometry(const QRect &geometry);

Q_SIGNALS:
    void ended();

private:
    void note();

    QPointer<QWindow> m_window;
    QSize m_ownSize;
    Delay m_end;
};

} // namespace zeph
