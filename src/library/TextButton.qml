// A button with a text.
import QtQuick
import QtQuick.Controls

Button {
    /// What it does, for the tool tip and for screen readers.
    property string help: text

    leftPadding: 10
    rightPadding: 10

    // On a button the key means the button, everywhere else what it lies in. Held, it presses once.
    Keys.onReturnPressed: event => { if (!event.isAutoRepeat) clicked(); }
    Keys.onEnterPressed: event => { if (!event.isAutoRepeat) clicked(); }

    Accessible.name: text
    Accessible.description: help
    Accessible.onPressAction: clicked()
    ToolTip.text: help
    ToolTip.visible: hovered && !down
    ToolTip.delay: Qt.styleHints.mousePressAndHoldInterval
}
