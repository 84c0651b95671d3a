// A button with a text, in the sidebar.
import QtQuick
import QtQuick.Controls

Button {
    required property string help

    leftPadding: 12
    rightPadding: 12
    font.pixelSize: 12
    focusPolicy: Qt.TabFocus

    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    Accessible.name: text
    Accessible.description: help
    ToolTip.text: help
    ToolTip.visible: hovered && !down
    ToolTip.delay: Qt.styleHints.mousePressAndHoldInterval
}
