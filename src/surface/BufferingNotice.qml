// Says that a live stream has stalled.
import QtQuick
import QtQuick.Controls

Column {
    spacing: 10

    Accessible.role: Accessible.AlertMessage
    Accessible.name: label.text

    BusyIndicator {
        anchors.horizontalCenter: parent.horizontalCenter
        width: 40
        height: 40
        running: parent.visible
        palette.dark: "white"
        palette.text: "white"
        Accessible.ignored: true
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
