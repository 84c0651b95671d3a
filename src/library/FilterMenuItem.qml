// A value that a filter menu offers.
import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import ZephPlayer.Library
import ZephPlayer.Surface

ItemDelegate {
    id: item

    required property int index
    required property string title
    required property bool isSelected

    implicitHeight: 26
    leftPadding: 6
    rightPadding: 6
    highlighted: ListView.isCurrentItem
    hoverEnabled: true

    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    Accessible.role: Accessible.MenuItem
    Accessible.name: title
    Accessible.checkable: true
    Accessible.checked: isSelected
    Accessible.onPressAction: clicked()

    background: Rectangle {
        radius: 4
        color: Qt.alpha(item.palette.highlight, 0.28)
        visible: item.hovered || item.activeFocus
    }

    contentItem: RowLayout {
        spacing: 5

        SystemImage {
            name: "checkmark"
            pointSize: 10
            opacity: item.isSelected ? 1 : 0
            color: item.palette.windowText
        }
        Label {
            Layout.fillWidth: true
            text: item.title
            textFormat: Text.PlainText
            font.pixelSize: 12
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }
}
