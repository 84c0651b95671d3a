// Who has the keyboard.
#pragma once

class QKeyEvent;

namespace zeph {

/// Whether a key is for what has the focus, and for nobody else: a text that is edited, an open
/// menu or list, a dialogue, or another application's window. Otherwise what has the focus is asked
/// for this key as it would be before a shortcut, with an event of the type ShortcutOverride, and
/// so are the items around it. Main thread only.
bool focusKeepsKey(const QKeyEvent &press);

} // namespace zeph
