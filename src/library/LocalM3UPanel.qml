// The saved links.
import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import ZephPlayer.Library

ColumnLayout {
    id: panel

    required property ContentView view

    spacing: 8

    SidebarButton {
        text: qsTr("Add M3U8 Link")
        help: qsTr("Save a link to a stream")
        onClicked: panel.view.addLocalEntry()
    }
    Item {
        Layout.fillHeight: true
    }
}
