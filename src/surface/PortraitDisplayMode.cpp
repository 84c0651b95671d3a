#include "surface/PortraitDisplayMode.h"

namespace zeph {

QString rawValue(PortraitDisplayMode mode)
{
    switch (mode) {
    case PortraitDisplayMode::Normal:
        return QStringLiteral("Normal");
    case PortraitDisplayMode::Fill:
        return QStringLiteral("Portrait Fill");
    case PortraitDisplayMode::Rotate:
        return QStringLiteral("Portrait Rotate 90°");
    case PortraitDisplayMode::Manual:
        return QStringLiteral("Manual Reframe");
    case PortraitDisplayMode::Smart:
        return QStringLiteral("Smart Reframe");
    }
    Q_UNREACHABLE();
}

std::optional<PortraitDisplayMode> portraitDisplayModeFromRawValue(QStringView rawValue)
{
    for (PortraitDisplayMode mode : allPortraitDisplayModes) {
        if (rawValue == zeph::rawValue(mode))
            return mode;
    }
    return std::nullopt;
}

} // namespace zeph
