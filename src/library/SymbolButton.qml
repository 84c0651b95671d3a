// A small button that is nothing but a symbol.
import QtQuick
import ZephPlayer.Library
import ZephPlayer.Surface

HelpedButton {
    id: button

    required property string symbol
    property color tint: palette.windowText
    /// The Tab key leads to it.
    property bool reachable: true

    implicitWidth: 22
    implicitHeight: 22
    focusPolicy: reachable ? Qt.TabFocus : Qt.NoFocus

    background: Rectangle {
        radius: 5
        color: Qt.alpha(button.palette.windowText, button.down ? 0.18 : 0.1)
        visible: button.hovered || button.down || button.activeFocus

        FocusRing {
            anchors.margins: 0
            radius: 5
            visible: button.activeFocus
        }
    }

    contentItem: Item {
        SystemImage {
            id: image
            anchors.centerIn: parent
            name: button.symbol
            pointSize: 12
            color: Qt.alpha(button.tint, 0.55)
        }
    }

    states: State {
        name: "pointedAt"
        when: button.hovered || button.activeFocus
        PropertyChanges {
            image.color: Qt.alpha(button.tint, 0.95)
        }
    }
}
