// A list of channels. It makes rows only for what it shows.
import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import ZephPlayer.Library
import ZephPlayer.Surface

ListView {
    id: list

    required property ContentView view
    required property ChannelListModel channels
    required property Item searchField
    required property string title
    readonly property alias keys: channelListKeys
    readonly property real scrollBarWidth: 8
    readonly property real rowWidth: width - scrollBarWidth

    Layout.fillWidth: true
    Layout.fillHeight: true
    // The scroll bar stands beside the panel.
    Layout.rightMargin: -scrollBarWidth

    model: channels
    clip: true
    reuseItems: true
    cacheBuffer: 0
    spacing: 1
    boundsBehavior: Flickable.StopAtBounds
    activeFocusOnTab: count > 0
    keyNavigationEnabled: false
    highlightMoveDuration: 0
    currentIndex: channelListKeys.currentRow

    Accessible.role: Accessible.List
    Accessible.name: title

    ChannelListKeys {
        id: channelListKeys
        browser: list.view.channels
        channels: list.channels
        list: list
        searchField: list.searchField
        rowsPerPage: list.height / 43
        onStartedAnew: list.positionViewAtBeginning()
    }

    ScrollBar.vertical: ScrollBar {
        width: list.scrollBarWidth
        minimumSize: 0.06
    }

    Label {
        parent: list
        anchors.centerIn: parent
        width: parent.width
        visible: list.count === 0
        text: qsTr("No channel matches.")
        horizontalAlignment: Text.AlignHCenter
        font.pixelSize: 12
        opacity: 0.6
    }
}
