// The ways to show a picture in a tall window.
#pragma once

#include <QQmlEngine>
#include <QString>

#include <array>
#include <optional>

// A namespace of its own is what QML can see an enumeration through.
namespace zeph::portraitDisplay {

Q_NAMESPACE
QML_NAMED_ELEMENT(PortraitDisplayMode)

enum class Mode {
    Normal, ///< The whole picture, letterboxed.
    Fill, ///< A portrait column of the enlarged picture.
    Rotate, ///< The picture turned by a quarter into the column.
    Manual, ///< As `Fill`; the user drags the picture to choose what the column shows.
    Smart, ///< As `Manual`; the column follows the largest face.
};
Q_ENUM_NS(Mode)

} // namespace zeph::portraitDisplay

namespace zeph {

using PortraitDisplayMode = portraitDisplay::Mode;

/// In the order in which they are offered.
inline constexpr std::array allPortraitDisplayModes {
    PortraitDisplayMode::Normal,
    PortraitDisplayMode::Fill,
    PortraitDisplayMode::Rotate,
    PortraitDisplayMode::Manual,
    PortraitDisplayMode::Smart,
};

/// The mode's title in menus, which also stands for it.
QString rawValue(PortraitDisplayMode mode);
/// Nothing for a text that is not exactly one of the five titles.
std::optional<PortraitDisplayMode> portraitDisplayModeFromRawValue(QStringView rawValue);

} // namespace zeph
