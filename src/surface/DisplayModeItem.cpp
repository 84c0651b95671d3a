#include "surface/DisplayModeItem.h"

namespace zeph {

namespace {

QString itemSymbol(PortraitDisplayMode mode)
{
    switch (mode) {
    case PortraitDisplayMode::Normal:
        return QStringLiteral("rectangle");
    case PortraitDisplayMode::Fill:
        return QStringLiteral("rectangle.portrait.fill");
    case PortraitDisplayMode::Rotate:
        return QStringLiteral("rotate.right");
    case PortraitDisplayMode::Manual:
        return QStringLiteral("hand.draw");
    case PortraitDisplayMode::Smart:
        return QStringLiteral("viewfinder");
    }
    Q_UNREACHABLE();
}

} // namespace

QList<DisplayModeItem> displayModeItems()
{
    QList<DisplayModeItem> items;
    for (PortraitDisplayMode mode : allPortraitDisplayModes)
        items << DisplayModeItem { mode, rawValue(mode), itemSymbol(mode) };
    return items;
}

QString displayModeLabelSymbol(PortraitDisplayMode mode)
{
    return mode == PortraitDisplayMode::Normal ? QStringLiteral("rectangle.portrait")
                                               : itemSymbol(mode);
}

} // namespace zeph
