// A button of the control bar: a symbol on a small plate.
import QtQuick
import QtQuick.Templates as T
import ZephPlayer.Surface

T.AbstractButton {
    id: button

    required property string symbol
    /// What it does, for the tool tip and for screen readers.
    required property string help
    property bool prominent: false

    implicitWidth: prominent ? 27 : 23
    implicitHeight: 19
    opacity: enabled ? 1 : 0.4
    focusPolicy: Qt.TabFocus
    hoverEnabled: true

    // The space bar belongs to the player.
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    Accessible.name: help
    // Of themselves, Qt 6.4 has screen readers press no controls.
    Accessible.onPressAction: clicked()
    T.ToolTip.text: help
    T.ToolTip.visible: hovered && !down
    T.ToolTip.delay: Qt.styleHints.mousePressAndHoldInterval

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
