// What the sidebar can show.
#pragma once

#include <QQmlEngine>
#include <QString>

// A namespace of its own is what QML can see an enumeration through.
namespace zeph::playerSidebar {

Q_NAMESPACE
QML_NAMED_ELEMENT(PlayerSidebarSection)

enum class Section {
    Network, ///< An address to open, and the channels of the last list from the network.
    LocalM3U, ///< The saved links.
};
Q_ENUM_NS(Section)

} // namespace zeph::playerSidebar

namespace zeph {

using PlayerSidebarSection = playerSidebar::Section;

/// The text that stands for a section.
QString rawValue(PlayerSidebarSection section);

} // namespace zeph
