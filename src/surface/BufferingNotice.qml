// Says that a live stream has stalled.
import QtQuick
import ZephPlayer.Surface

Column {
    spacing: 10

    Accessible.role: Accessible.AlertMessage
    Accessible.name: label.text

    ActivityIndicator {
        anchors.horizontalCenter: parent.horizontalCenter
        width: 32
        height: 32
        color: "white"
    }
    Text {
        id: label
        anchors.horizontalCenter: parent.horizontalCenter
        text: qsTr("Buffering…")
        font.pixelSize: 12
        font.weight: Font.Medium
        color: Qt.rgba(1, 1, 1, 0.85)
        Accessible.ignored: true
    }
}
