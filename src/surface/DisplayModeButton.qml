// The button that opens the menu of display modes.
import QtQuick
import QtQuick.Controls
import ZephPlayer.Surface

ControlButton {
    id: button

    required property PlayerControlBar controlBar

    symbol: controlBar.displayModeSymbol
    help: qsTr("Video display mode")
    implicitWidth: 31
    ToolTip.visible: hovered && !down && !menu.visible
    onClicked: menu.popup(button, 0, -menu.height - 4)

    Menu {
        id: menu

        Repeater {
            model: button.controlBar.displayModes
            delegate: DisplayModeMenuItem {
                controlBar: button.controlBar
            }
        }
    }
}
