// A short message over the picture; invisible while there is none.
import QtQuick

Rectangle {
    id: toast

    required property string message

    visible: message.length > 0
    implicitWidth: label.implicitWidth + 28
    implicitHeight: label.height + 18
    radius: 8
    color: Qt.rgba(0.11, 0.11, 0.12, 0.88)
    border.color: Qt.rgba(1, 1, 1, 0.14)
    border.width: 1

    Accessible.role: Accessible.AlertMessage
    Accessible.name: message

    Text {
        id: label
        anchors.centerIn: parent
        width: Math.min(implicitWidth, toast.width - 28)
        text: toast.message
        textFormat: Text.PlainText
        color: "white"
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignHCenter
    }
}
