#include "platform/KeyRepeat.h"

namespace zeph {

KeyRepeat::KeyRepeat()
    : m_releases(QEvent::KeyRelease, [this](QWindow &, QEvent &event) {
        const auto &release = static_cast<const QKeyEvent &>(event);
        m_releasedScanCode = release.nativeScanCode();
        m_releasedAt = release.timestamp();
        return false;
    })
{
}

bool KeyRepeat::isRepeat(const QKeyEvent &press) const
{
    const bool followsItsRelease = press.nativeScanCode() != 0
        && press.nativeScanCode() == m_releasedScanCode && press.timestamp() == m_releasedAt;
    return press.isAutoRepeat() || followsItsRelease;
}

} // namespace zeph
