// The menu of display modes.
import QtQuick
import QtQuick.Controls
import ZephPlayer.Surface

Menu {
    id: menu

    required property PlayerControlBar controlBar

    // A press on its button is the button's, which closes it.
    closePolicy: Popup.CloseOnEscape | Popup.CloseOnPressOutsideParent

    Repeater {
        model: menu.controlBar.displayModes
        delegate: DisplayModeMenuItem {
            controlBar: menu.controlBar
        }
    }
}
