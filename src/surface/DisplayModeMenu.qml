// The menu of display modes.
import QtQuick
import QtQuick.Controls
import ZephPlayer.Surface

Menu {
    id: menu

    required property PlayerControlBar controlBar

    Repeater {
        model: menu.controlBar.displayModes
        delegate: DisplayModeMenuItem {
            controlBar: menu.controlBar
        }
    }
}
