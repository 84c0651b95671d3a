// The area that shows what plays.
import QtQuick
import ZephPlayer.Player
import ZephPlayer.Surface
import ZephPlayer.Sources.Web

Rectangle {
    id: surface

    required property PlayerModel model
    property alias displayMode: playerView.displayMode
    property alias fillScreen: playerView.fillScreen
    /// What covers the lower edge of the picture.
    property real toastMargin: 0

    color: "black"

    PlayerLayerView {
        id: playerView
        anchors.fill: parent
        player: surface.model.player
        visible: !webPlayer.item
    }

    WebPlayer {
        id: webPlayer
        anchors.fill: parent
        youtubeContent: surface.model.youtubeContent
        okVideoContent: surface.model.okVideoContent
    }

    PlayerSurfaceNotices {
        id: notices
        model: surface.model
    }

    OpenMediaPrompt {
        anchors.centerIn: parent
        visible: notices.invitesToOpen
        onClicked: surface.model.openFile()
    }

    LoadedWhenShown {
        anchors.centerIn: parent
        visible: shown
        shown: notices.tellsOfBuffering
        source: "BufferingNotice.qml"
    }

    ToastLabel {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 24 + surface.toastMargin
        width: Math.min(implicitWidth, parent.width - 32)
        message: surface.model.toastMessage
    }
}
