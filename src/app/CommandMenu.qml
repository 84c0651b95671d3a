// A menu of commands.
import QtQuick
import QtQuick.Controls
import ZephPlayer.App

Menu {
    id: menu

    required property list<MenuCommand> commands

    // The lines are made, and their types loaded, when they are first to be seen: the window need
    // not wait for them.
    readonly property Loader lines: Loader {
        active: false
        Component.onCompleted: setSource("CommandMenuLines.qml", { menu: menu })
    }

    onAboutToShow: lines.active = true
}
