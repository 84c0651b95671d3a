// A menu of commands.
import QtQuick
import QtQuick.Controls
import Qt.labs.qmlmodels
import ZephPlayer.App

Menu {
    id: menu

    required property list<MenuCommand> commands

    // The lines are made when they are first to be seen: the window need not wait for them.
    onAboutToShow: lines.model = commands

    Repeater {
        id: lines
        delegate: DelegateChooser {
            role: "isDivider"
            DelegateChoice {
                roleValue: true
                MenuSeparator {}
            }
            DelegateChoice {
                CommandMenuItem {}
            }
        }
    }
}
