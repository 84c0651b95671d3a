// When to load a live stream again that has dropped.
#pragma once

#include "platform/Delay.h"

#include <QElapsedTimer>

namespace zeph {

/// Spaces out the attempts to reload a dropped live stream: 1, 2, 4 … 30 seconds apart, so that a
/// server that is down is not hammered and one that is back is found soon. Main thread only.
class LiveReload {
public:
    static constexpr std::chrono::milliseconds firstDelay { 1000 };
    static constexpr std::chrono::milliseconds longestDelay { 30000 };

    /// Calls `reload` after the next delay.
    void schedule(std::function<void()> reload);
    void cancel();

    /// The stream plays. A stream that then stays up for as long as the next delay has recovered:
    /// its next drop starts from the first delay.
    void streamStarted();

    /// A new item: forgets the drops of the last.
    void reset();

    /// The delay that the next `schedule` uses.
    std::chrono::milliseconds nextDelay() const { return m_nextDelay; }

private:
    Delay m_delay;
    QElapsedTimer m_upTime;
    std::chrono::milliseconds m_nextDelay = firstDelay;
};

} // namespace zeph
