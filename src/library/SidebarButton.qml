// A button with a text, in the sidebar.
import QtQuick
import QtQuick.Controls
import ZephPlayer.Library
import ZephPlayer.Surface

TextButton {
    id: button

    /// Before the text; empty for none.
    property string symbol

    font.pointSize: 9
    focusPolicy: Qt.TabFocus

    contentItem: Item {
        implicitWidth: row.implicitWidth
        implicitHeight: row.implicitHeight

        Row {
            id: row
            anchors.centerIn: parent
            spacing: 5

            SystemImage {
                anchors.verticalCenter: parent.verticalCenter
                visible: name.length > 0
                name: button.symbol
                pointSize: 11
                color: label.color
            }
            Label {
                id: label
                anchors.verticalCenter: parent.verticalCenter
                text: button.text
                font: button.font
                color: button.palette.buttonText
                Accessible.ignored: true
            }
        }
    }
}
