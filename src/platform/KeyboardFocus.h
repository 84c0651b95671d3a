// Who has the keyboard.
#pragma once

namespace zeph {

/// Whether the keys are for what has the focus, and for nobody else: a text that is edited, an open
/// menu or list, a dialogue, or another application's window. Main thread only.
bool focusKeepsKeys();

} // namespace zeph
