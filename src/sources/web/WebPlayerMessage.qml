// Says over a web player why there is nothing to see.
import QtQuick
import QtQuick.Controls

Rectangle {
    id: panel

    required property string message
    required property bool canRetry
    signal pressed
    signal retry

    color: "black"

    Accessible.role: Accessible.AlertMessage
    Accessible.name: message

    // What is behind it gets no press.
    MouseArea {
        anchors.fill: parent
        onPressed: panel.pressed()
    }

    Column {
        anchors.centerIn: parent
        width: Math.min(parent.width - 48, 420)
        spacing: 16

        Text {
            width: parent.width
            text: panel.message
            textFormat: Text.PlainText
            color: Qt.rgba(1, 1, 1, 0.72)
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignHCenter
        }

        Button {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: panel.canRetry
            text: qsTr("Retry")
            palette.button: "#3a3a3c"
            palette.buttonText: "white"
            // The space bar is the player's.
            Keys.onReturnPressed: panel.retry()
            Keys.onEnterPressed: panel.retry()
            onClicked: panel.retry()

            Accessible.onPressAction: clicked()
        }
    }
}
