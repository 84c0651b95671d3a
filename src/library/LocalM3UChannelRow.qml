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
        reachable: row.isKeyRow
        onClicked: row.edit()
    }
    SymbolButton {
        symbol: "trash"
        help: qsTr("Delete")
        reachable: row.isKeyRow
        onClicked: row.remove()
    }
}
