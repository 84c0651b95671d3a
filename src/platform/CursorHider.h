// Hides the mouse cursor while it is not needed.
#pragma once

#include "platform/EventMonitor.h"

#include <optional>

namespace zeph {

/// Hides the cursor over the application's windows until the mouse moves. Shows it again at the
/// latest when destroyed. Needs the application object. Main thread only.
class CursorHider {
public:
    CursorHider() = default;
    ~CursorHider();
    CursorHider(const CursorHider &) = delete;
    CursorHider &operator=(const CursorHider &) = delete;

    void hideUntilMouseMoves();
    bool isHidden() const { return m_isHidden; }

private:
    void show();

    bool m_isHidden = false;
    std::optional<EventMonitor> m_mouseMonitor;
};

} // namespace zeph
