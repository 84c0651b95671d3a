// A menu of commands.
import QtQuick
import QtQuick.Controls
import Qt.labs.qmlmodels
import ZephPlayer.App

Menu {
    id: menu

    required property list<MenuCommand> commands

    Repeater {
        model: menu.commands
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
