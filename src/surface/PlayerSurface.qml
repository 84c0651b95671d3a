// The area that shows what plays.
import QtQuick
import ZephPlayer.Player
import ZephPlayer.Surface

Rectangle {
    id: surface

    required property PlayerModel model

    color: "black"

    PlayerHostingView {
        anchors.fill: parent
        player: surface.model.player
    }

    ToastLabel {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 24
        width: Math.min(implicitWidth, parent.width - 32)
        message: surface.model.toastMessage
    }
}
