// A window with the surface and the control bar in it, as they are in the main window.
import QtQuick
import QtQuick.Controls
import ZephPlayer.Player
import ZephPlayer.Surface

ApplicationWindow {
    id: window

    required property PlayerControlBar controlBar

    width: 520
    height: 360
    visible: true

    PlayerSurface {
        anchors.fill: parent
        anchors.bottomMargin: bar.height
        model: window.controlBar.model
        displayMode: window.controlBar.portraitMode
    }

    PlayerControlBarRow {
        id: bar
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        controlBar: window.controlBar
    }
}
