// A list of channels.
import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import ZephPlayer.Library

Flickable {
    id: list

    required property ContentView view
    required property ChannelListModel channels
    required property Item searchField
    required property string title
    required property Component delegate
    readonly property alias keys: channelListKeys
    readonly property real scrollBarWidth: 8

    Layout.fillWidth: true
    Layout.fillHeight: true
    // The scroll bar stands beside the panel.
    Layout.rightMargin: -scrollBarWidth
    contentHeight: channels.count * rows.pitch
    clip: true
    boundsBehavior: Flickable.StopAtBounds

    ScrollBar.vertical: ScrollBar {
        width: list.scrollBarWidth
        minimumSize: 0.06
    }

    ChannelRows {
        id: rows
        parent: list
        width: list.width - list.scrollBarWidth
        height: list.height
        activeFocusOnTab: true
        scroller: list
        contentY: list.contentY
        pitch: 44
        model: list.channels
        delegate: list.delegate
        currentRow: channelListKeys.currentRow

        Accessible.role: Accessible.List
        Accessible.name: list.title
    }
    ChannelListKeys {
        id: channelListKeys
        browser: list.view.channels
        channels: list.channels
        list: rows
        searchField: list.searchField
        rowsPerPage: rows.height / rows.pitch
        onStartedAnew: rows.positionAtBeginning()
    }
    Label {
        parent: list
        anchors.centerIn: parent
        visible: list.channels.count === 0
        text: qsTr("No channel matches.")
        font.pixelSize: 12
        opacity: 0.6
    }
}
