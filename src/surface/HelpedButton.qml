// What all buttons do that are drawn by us: they tell what they do, and are pressed by Return.
import QtQuick
import QtQuick.Templates as T

T.AbstractButton {
    /// What it does, for the tool tip and for screen readers.
    required property string help

    focusPolicy: Qt.TabFocus
    hoverEnabled: true

    // The space bar belongs to the player. A key that is held is one press.
    Keys.onReturnPressed: event => { if (!event.isAutoRepeat) clicked(); }
    Keys.onEnterPressed: event => { if (!event.isAutoRepeat) clicked(); }

    Accessible.name: help
    // Of themselves, Qt 6.4 has screen readers press no controls.
    Accessible.onPressAction: clicked()
    T.ToolTip.text: help
    T.ToolTip.visible: hovered && !down
    T.ToolTip.delay: Qt.styleHints.mousePressAndHoldInterval
}
