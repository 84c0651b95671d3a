// One line of the menu of display modes.
#pragma once

#include "surface/PortraitDisplayMode.h"

#include <QList>
#include <QQmlEngine>
#include <QString>

namespace zeph {

struct DisplayModeItem {
    Q_GADGET
    QML_ANONYMOUS

    Q_PROPERTY(zeph::portraitDisplay::Mode mode MEMBER mode)
    Q_PROPERTY(QString title MEMBER title)
    /// The name of the symbol beside the title.
    Q_PROPERTY(QString symbol MEMBER symbol)

public:
    PortraitDisplayMode mode = PortraitDisplayMode::Normal;
    QString title;
    QString symbol;
};

/// One item for each mode, in their order.
QList<DisplayModeItem> displayModeItems();
/// The name of the symbol that stands for `mode` on the button that opens the menu.
QString displayModeLabelSymbol(PortraitDisplayMode mode);

} // namespace zeph
