#include "library/WarningColor.h"

namespace zeph {

QColor WarningColor::on(const QColor &background)
{
    return background.lightnessF() < 0.5f ? QColor(0xff, 0x8a, 0x80) : QColor(0xb3, 0x26, 0x1e);
}

} // namespace zeph
