// A button of the control bar: a symbol on a small plate.
import QtQuick
import ZephPlayer.Surface

HelpedButton {
    id: button

    required property string symbol
    property bool prominent: false

    implicitWidth: prominent ? 27 : 23
    implicitHeight: 19

    background: Rectangle {
        radius: 4
        color: button.prominent ? Qt.alpha(button.palette.windowText, 0.13)
                                : Qt.alpha(button.palette.light, 0.42)
        border.color: Qt.alpha(button.palette.windowText, 0.14)
        border.width: 0.6

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: Qt.alpha(button.palette.windowText, button.down ? 0.18 : 0.08)
            visible: button.hovered || button.down
        }
        FocusRing {
            visible: button.visualFocus
        }
    }

    contentItem: Item {
        SystemImage {
            anchors.centerIn: parent
            name: button.symbol
            pointSize: button.prominent ? 12 : 10.5
            weight: SystemImage.Semibold
            color: Qt.alpha(button.palette.windowText, 0.88)
        }
    }
}
