// A cancellable delay on the main thread.
#pragma once

#include <QTimer>

#include <chrono>
#include <functional>

namespace zeph {

/// Runs one piece of work once, some time from now, unless it is cancelled first.
///
/// Starting again replaces the work that was pending, so at most one is. The work never runs after
/// the delay has been destroyed, which makes it safe for the work to refer to the delay's owner.
/// Main thread only.
class Delay {
public:
    Delay();
    Delay(const Delay &) = delete;
    Delay &operator=(const Delay &) = delete;

    void start(std::chrono::milliseconds interval, std::function<void()> work);
    void cancel();
    bool isPending() const;

private:
    QTimer m_timer;
    std::function<void()> m_work;
};

} // namespace zeph
