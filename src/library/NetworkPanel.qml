// An address to open.
import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import ZephPlayer.Library

ColumnLayout {
    id: panel

    required property ContentView view

    spacing: 8

    TextField {
        id: addressField
        Layout.fillWidth: true
        placeholderText: qsTr("Stream address")
        text: panel.view.address
        selectByMouse: true
        inputMethodHints: Qt.ImhUrlCharactersOnly | Qt.ImhNoPredictiveText
        onTextEdited: panel.view.address = text
        onAccepted: panel.view.openStream()
        onActiveFocusChanged: panel.view.isStreamAddressFocused = activeFocus

        Accessible.name: placeholderText
        ToolTip.text: qsTr("YouTube and OK videos, .m3u8 streams and .m3u lists")
        ToolTip.visible: hovered && !activeFocus
        ToolTip.delay: Qt.styleHints.mousePressAndHoldInterval
    }
    Label {
        Layout.fillWidth: true
        text: qsTr("YouTube and OK videos, .m3u8 streams and .m3u lists")
        wrapMode: Text.Wrap
        font.pixelSize: 11
        opacity: 0.6
    }
    SidebarButton {
        text: qsTr("Play")
        help: qsTr("Open the stream manually")
        onClicked: panel.view.openStream()
    }
    Label {
        Layout.fillWidth: true
        visible: text.length > 0
        text: panel.view.model.errorMessage
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        font.pixelSize: 12

        Accessible.role: Accessible.AlertMessage
        Accessible.name: text
    }
    Item {
        Layout.fillHeight: true
    }

    Connections {
        target: panel.view

        function onIsStreamAddressFocusedChanged() {
            if (panel.view.isStreamAddressFocused)
                addressField.forceActiveFocus();
            else
                addressField.focus = false;
        }
    }
}
