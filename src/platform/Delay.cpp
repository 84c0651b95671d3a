#include "platform/Delay.h"

#include <utility>

namespace zeph {

Delay::Delay()
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    // The work is moved out first: it may start this delay again, or destroy it.
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { std::exchange(m_work, {})(); });
}

void Delay::start(std::chrono::milliseconds interval, std::function<void()> work)
{
    m_work = std::move(work);
    m_timer.start(interval);
}

void Delay::cancel()
{
    m_timer.stop();
    m_work = {};
}

bool Delay::isPending() const
{
    return m_timer.isActive();
}

} // namespace zeph
