// Presses that a held key repeats.
#pragma once

#include "platform/EventMonitor.h"

#include <QKeyEvent>

namespace zeph {

/// Tells repeated presses from those by hand, where Qt does not. X11 announces a repeat as a
/// release and a press of the same moment; when the press comes late, Qt takes the two for the
/// user's. Needs the application object. Main thread only.
class KeyRepeat {
public:
    KeyRepeat();

    /// For a press of a key on the keyboard, while it is delivered.
    bool isRepeat(const QKeyEvent &press) const;

private:
    quint32 m_releasedScanCode = 0;
    quint64 m_releasedAt = 0; ///< Milliseconds, by the display's clock.
    EventMonitor m_releases;
};

} // namespace zeph
