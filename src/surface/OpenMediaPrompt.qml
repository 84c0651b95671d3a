// The invitation on a surface that has nothing to show.
import QtQuick
import ZephPlayer.Surface

HelpedButton {
    id: prompt

    help: qsTr("Open Media")
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    padding: 16

    Accessible.description: qsTr("Click to open media or drop a video or audio file here")

    background: Item {
        FocusRing {
            visible: prompt.visualFocus
        }
    }

    contentItem: Column {
        spacing: 7

        SystemImage {
            anchors.horizontalCenter: parent.horizontalCenter
            name: "play.rectangle"
            pointSize: 52
            weight: SystemImage.UltraLight
            color: Qt.rgba(1, 1, 1, 0.38)
        }
        Text {
            anchors.horizontalCenter: parent.horizontalCenter
            text: qsTr("Click to open media")
            font.family: prompt.font.family
            font.pixelSize: 15
            font.weight: Font.DemiBold
            color: Qt.rgba(1, 1, 1, 0.72)
            Accessible.ignored: true
        }
        Text {
            anchors.horizontalCenter: parent.horizontalCenter
            text: qsTr("or drop a video or audio file here")
            font.family: prompt.font.family
            font.pixelSize: 12
            color: Qt.rgba(1, 1, 1, 0.45)
            Accessible.ignored: true
        }
    }
}
