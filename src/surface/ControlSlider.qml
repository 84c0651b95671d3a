// A slider of the control bar.
import QtQuick
import QtQuick.Templates as T
import ZephPlayer.Surface

T.Slider {
    id: slider

    /// What it sets, for the tool tip and for screen readers.
    required property string help
    // Where Qt 6.4 looks for the range that it tells screen readers.
    readonly property real minimumValue: from
    readonly property real maximumValue: to

    implicitHeight: 19
    padding: 0
    focusPolicy: Qt.TabFocus
    hoverEnabled: true

    Accessible.name: help
    T.ToolTip.text: help
    T.ToolTip.visible: hovered && !pressed
    T.ToolTip.delay: Qt.styleHints.mousePressAndHoldInterval

    background: Rectangle {
        x: slider.handle.width / 2
        y: Math.round((slider.height - height) / 2)
        width: slider.width - slider.handle.width
        height: 3
        radius: 1.5
        color: Qt.alpha(slider.palette.windowText, 0.2)

        Rectangle {
            width: parent.width * slider.visualPosition
            height: parent.height
            radius: parent.radius
            color: Qt.alpha(slider.palette.windowText, 0.88)
        }
    }

    handle: Rectangle {
        x: slider.visualPosition * (slider.width - width)
        y: Math.round((slider.height - height) / 2)
        width: 11
        height: 11
        radius: 5.5
        color: slider.pressed ? "#e6e6e6" : "white"
        border.color: Qt.rgba(0, 0, 0, 0.35)
        border.width: 1

        FocusRing {
            radius: 7.5
            visible: slider.visualFocus
        }
    }
}
