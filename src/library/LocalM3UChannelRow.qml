// A saved link.
import QtQuick
import ZephPlayer.Library

ChannelRow {
    id: row

    signal edit
    signal remove

    SymbolButton {
        symbol: "pencil"
        help: qsTr("Edit")
        reachable: row.ListView.isCurrentItem
        onClicked: row.edit()
    }
    SymbolButton {
        symbol: "trash"
        help: qsTr("Delete")
        reachable: row.ListView.isCurrentItem
        onClicked: row.remove()
    }
}
