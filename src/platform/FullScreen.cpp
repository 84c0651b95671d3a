#include "platform/FullScreen.h"

#include <QWindow>

namespace zeph {

void toggleFullScreen(QWindow &window)
{
    window.setWindowStates(window.windowStates() ^ Qt::WindowFullScreen);
}

} // namespace zeph
