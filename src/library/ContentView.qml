// What the main window holds.
import QtQuick
import ZephPlayer.Player
import ZephPlayer.Surface

Item {
    id: content

    required property PlayerModel model

    Component.onCompleted: model.installKeyboardShortcuts()

    PlayerSurface {
        anchors.fill: parent
        model: content.model
    }
}
