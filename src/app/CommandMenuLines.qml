// The lines of a menu of commands.
import QtQml
import QtQuick.Controls
import Qt.labs.qmlmodels
import ZephPlayer.App

Instantiator {
    id: lines

    required property CommandMenu menu

    model: lines.menu.commands
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
    onObjectAdded: (index, line) => lines.menu.insertItem(index, line)
}
