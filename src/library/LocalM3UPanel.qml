// The saved links.
import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import ZephPlayer.Library

ColumnLayout {
    id: panel

    required property ContentView view

    spacing: 6

    PanelHeading {
        text: qsTr("LOCAL M3U8 LINKS")
    }
    SidebarButton {
        Layout.fillWidth: true
        symbol: "folder.badge.plus"
        text: panel.view.chooseFileText
        help: qsTr("Replace the saved links by those of an M3U file")
        onClicked: panel.view.importLocalPlaylist()
    }
    SidebarButton {
        Layout.fillWidth: true
        symbol: "plus"
        text: qsTr("Add M3U8 Link")
        help: qsTr("Save a link to a stream")
        onClicked: panel.view.addLocalEntry()
    }
    RowLayout {
        spacing: 6

        SidebarButton {
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            text: qsTr("Export")
            help: qsTr("Write the saved links to an M3U file")
            onClicked: panel.view.localM3UStore.exportLocalPlaylistAsM3U()
        }
        SidebarButton {
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            text: qsTr("Clear")
            help: qsTr("Delete all saved links")
            onClicked: panel.view.confirmingLocalClear = true
        }
    }
    PanelError {
        text: panel.view.model.errorMessage
    }
    PanelError {
        text: panel.view.localM3UStore.errorMessage
    }

    PanelText {
        Layout.topMargin: 4
        visible: panel.view.channels.localChannels.totalCount === 0
        text: qsTr("No local M3U8 links yet. Choose an M3U file or click + to add a link.")
    }
    ColumnLayout {
        visible: panel.view.channels.localChannels.totalCount > 0
        spacing: 6

        ChannelFilters {
            id: filters
            Layout.topMargin: 4
            browser: panel.view.channels
            placeholder: qsTr("Search local M3U8 links")
        }
        PanelHeading {
            id: heading
            text: panel.view.channels.channelCountText
        }
        ChannelList {
            id: list
            view: panel.view
            channels: panel.view.channels.localChannels
            searchField: filters.searchField
            title: heading.text
            delegate: LocalM3UChannelRow {
                logos: panel.view.logos
                onClicked: list.keys.click(index)
                onEdit: panel.view.editLocalChannel(index)
                onRemove: panel.view.askToDeleteLocalChannel(index)
            }
        }
    }
    Item {
        Layout.fillHeight: true
        visible: panel.view.channels.localChannels.totalCount === 0
    }
}
