// A line of text in the sidebar.
import QtQuick
import QtQuick.Controls

TextField {
    property string help: placeholderText

    font.pixelSize: 12
    selectByMouse: true

    Accessible.name: placeholderText
    Accessible.description: help
    ToolTip.text: help
    ToolTip.visible: hovered && !activeFocus
    ToolTip.delay: Qt.styleHints.mousePressAndHoldInterval
}
