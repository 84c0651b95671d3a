// A value that a filter menu offers.
import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import ZephPlayer.Library
import ZephPlayer.Surface

SidebarItem {
    id: item

    required property int index
    required property string title
    required property bool isSelected

    help: title
    implicitHeight: 26
    plate.color: Qt.alpha(palette.highlight, 0.28)

    Accessible.role: Accessible.MenuItem
    Accessible.name: title
    Accessible.checkable: true
    Accessible.checked: isSelected

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 6
        anchors.rightMargin: 6
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
            horizontalAlignment: Text.AlignLeft
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }
}
