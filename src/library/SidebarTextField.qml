// A line of text in the sidebar. One that goes gives up the keys, which would go on to it unseen.
import QtQuick
import QtQuick.Controls

TextField {
    property string help: placeholderText

    font.pixelSize: 12
    selectByMouse: true
    maximumLength: 0x7fffffff // By itself, 32767.
    onVisibleChanged: focus = visible && focus

    // A key that is held is one press.
    Keys.onReturnPressed: event => event.accepted = event.isAutoRepeat
    Keys.onEnterPressed: event => event.accepted = event.isAutoRepeat

    Accessible.name: placeholderText
    Accessible.description: help
    ToolTip.text: help
    ToolTip.visible: hovered && !activeFocus
    ToolTip.delay: Qt.styleHints.mousePressAndHoldInterval
}
