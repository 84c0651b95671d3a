// A channel of the list from the network.
import QtQuick
import ZephPlayer.Library

ChannelRow {
    id: row

    required property bool isSaved
    required property string saveHelp
    required property string saveSymbol

    signal save

    SymbolButton {
        symbol: row.saveSymbol
        help: row.saveHelp
        tint: row.isSaved ? palette.highlight : palette.windowText
        reachable: row.isKeyRow
        onClicked: row.save()
    }
}
