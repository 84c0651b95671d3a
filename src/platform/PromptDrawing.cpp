#include "platform/PromptDrawing.h"

#include <QByteArray>

namespace zeph {

void drawPromptly()
{
    constexpr const char *milliseconds = "QT_QPA_UPDATE_IDLE_TIME";
    if (qEnvironmentVariableIsEmpty(milliseconds))
        qputenv(milliseconds, "0");
}

} // namespace zeph
