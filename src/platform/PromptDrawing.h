// When windows draw what has changed.
#pragma once

namespace zeph {

/// Has windows draw at once. Qt lets 5 ms pass first, in case more changes: by as much each picture
/// of a video, and what a click does, would be late. To be called before the application object is
/// made; QT_QPA_UPDATE_IDLE_TIME, when the user has set it, says otherwise.
void drawPromptly();

} // namespace zeph
