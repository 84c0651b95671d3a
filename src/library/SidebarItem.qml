// Something in the sidebar to click on. It is no Control, which would call itself a button whatever
// is said here: what it is has to be said by who uses it.
import QtQuick
import QtQuick.Controls
import ZephPlayer.Surface

Item {
    id: item

    /// What it does, for the tool tip and for screen readers.
    required property string help
    /// The tool tip may be shown.
    property bool tellsHelp: true
    readonly property bool hovered: hover.hovered
    property alias plate: plate

    signal clicked

    // A key that is held is one press.
    Keys.onReturnPressed: event => { if (!event.isAutoRepeat) clicked(); }
    Keys.onEnterPressed: event => { if (!event.isAutoRepeat) clicked(); }

    Accessible.onPressAction: clicked()
    ToolTip.text: help
    ToolTip.visible: hovered && tellsHelp && !area.pressed
    ToolTip.delay: Qt.styleHints.mousePressAndHoldInterval

    // Also while it is over one of the buttons within.
    HoverHandler {
        id: hover
        // Names are others' texts: the style's tool tip would take them for markup, and fetch what
        // it names.
        onHoveredChanged: item.ToolTip.toolTip.contentItem.textFormat = Text.PlainText
    }
    MouseArea {
        id: area
        anchors.fill: parent
        onClicked: item.clicked()
    }
    Rectangle {
        id: plate
        anchors.fill: parent
        radius: 6
        color: Qt.alpha(item.palette.windowText, 0.08)
        visible: item.hovered || item.activeFocus

        FocusRing {
            anchors.margins: 0
            visible: item.activeFocus
        }
    }
}
