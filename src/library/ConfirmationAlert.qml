// Asks before something is lost.
import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import ZephPlayer.Library

Popup {
    id: alert

    required property string title
    required property string message
    /// What the button says that does it.
    required property string destructiveText

    signal accepted
    signal rejected

    parent: Overlay.overlay
    // One that is made while the desktop is dark would be light.
    palette: parent.palette
    anchors.centerIn: parent
    width: Math.min(340, parent.width - 2 * margins)
    margins: 8
    padding: 20
    modal: true
    focus: true
    closePolicy: Popup.CloseOnEscape
    onOpened: cancelButton.forceActiveFocus(Qt.TabFocusReason)
    onClosed: rejected()

    background: Rectangle {
        radius: 10
        color: alert.palette.window
        border.color: Qt.rgba(0.5, 0.5, 0.5, 0.5)

        Accessible.role: Accessible.Dialog
        Accessible.name: alert.title
        Accessible.description: alert.message
    }

    contentItem: ColumnLayout {
        spacing: 10

        // Not a Label, which would call itself static text.
        Text {
            Layout.fillWidth: true
            text: alert.title
            textFormat: Text.PlainText
            color: palette.windowText
            font.weight: Font.DemiBold
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        Label {
            Layout.fillWidth: true
            text: alert.message
            textFormat: Text.PlainText
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }
        RowLayout {
            Layout.topMargin: 6
            spacing: 8

            TextButton {
                id: cancelButton
                Layout.fillWidth: true
                text: qsTr("Cancel")
                onClicked: alert.rejected()
            }
            TextButton {
                Layout.fillWidth: true
                text: alert.destructiveText
                palette.buttonText: WarningColor.on(alert.palette.button)
                onClicked: alert.accepted()
            }
        }
    }
}
