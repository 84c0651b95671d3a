#include "platform/LiveReload.h"

#include <algorithm>
#include <utility>

namespace zeph {

void LiveReload::schedule(std::function<void()> reload)
{
    const bool recovered = m_upTime.isValid() && m_upTime.hasExpired(m_nextDelay.count());
    if (recovered)
        m_nextDelay = firstDelay;
    m_upTime.invalidate();
    m_delay.start(m_nextDelay, std::move(reload));
    m_nextDelay = std::min(m_nextDelay * 2, longestDelay);
}

void LiveReload::cancel()
{
    m_delay.cancel();
}

void LiveReload::streamStarted()
{
    if (!m_upTime.isValid())
        m_upTime.start();
}

void LiveReload::reset()
{
    cancel();
    m_upTime.invalidate();
    m_nextDelay = firstDelay;
}

} // namespace zeph
