// Full screen and back.
#pragma once

class QWindow;

namespace zeph {

/// Makes `window` fill the screen, or gives it back the size and state that it had before.
/// Main thread only.
void toggleFullScreen(QWindow &window);

} // namespace zeph
