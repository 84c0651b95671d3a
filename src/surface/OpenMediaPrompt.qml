// The invitation on a surface that has nothing to show.
import QtQuick
import QtQuick.Templates as T
import ZephPlayer.Surface

T.AbstractButton {
    id: prompt

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    padding: 16
    focusPolicy: Qt.TabFocus

    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    Accessible.name: qsTr("Open Media")
    Accessible.description: qsTr("Click to open media or drop a video or audio file here")
    Accessible.onPressAction: clicked()
    T.ToolTip.text: qsTr("Open Media")
    T.ToolTip.visible: hovered && !down
    T.ToolTip.delay: Qt.styleHints.mousePressAndHoldInterval

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
