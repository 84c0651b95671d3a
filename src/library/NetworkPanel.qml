// An address to open, and the channels of the last list that was opened.
import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import ZephPlayer.Library

ColumnLayout {
    id: panel

    required property ContentView view

    spacing: 8

    SidebarTextField {
        id: addressField
        Layout.fillWidth: true
        placeholderText: qsTr("Stream address")
        help: helpLine.text
        text: panel.view.address
        inputMethodHints: Qt.ImhUrlCharactersOnly | Qt.ImhNoPredictiveText
        onTextChanged: panel.view.address = text
        onAccepted: panel.view.openStream()
        onActiveFocusChanged: panel.view.isStreamAddressFocused = activeFocus
    }
    PanelText {
        id: helpLine
        text: qsTr("YouTube and OK videos, .m3u8 streams and .m3u lists")
    }
    SidebarTextField {
        Layout.fillWidth: true
        visible: panel.view.showMovieName
        placeholderText: qsTr("Movie or Playlist Name (optional)")
        text: panel.view.movieName
        onTextChanged: panel.view.movieName = text
        onAccepted: panel.view.openStream()
    }
    RowLayout {
        spacing: 4

        SidebarButton {
            id: openButton
            text: qsTr("Play")
            help: qsTr("Open the stream manually")
            symbol: "play.fill"
            font.pointSize: 9.5 * 0.75 // 9.5 units of the scene.
            font.weight: Font.DemiBold
            Accessible.name: help
            Accessible.description: text
            onClicked: panel.view.openStream()

            states: State {
                when: panel.view.model.isLoading
                PropertyChanges {
                    openButton.text: qsTr("Loading")
                }
            }
        }
        Item {
            Layout.fillWidth: true
        }
        SymbolButton {
            symbol: "textformat"
            help: panel.view.movieNameToggleHelp
            onClicked: panel.view.showMovieName = !panel.view.showMovieName
            onHoveredChanged: panel.view.movieNameToggleHovered = hovered
        }
        SymbolButton {
            symbol: "xmark.circle.fill"
            help: qsTr("Clear playlist and stop network playback")
            onClicked: panel.view.clearNetworkStream()
        }
    }
    PanelError {
        text: panel.view.model.errorMessage
    }
    LoadingNotice {
        model: panel.view.model
    }

    ColumnLayout {
        visible: panel.view.channels.networkChannels.totalCount > 0
        spacing: 6

        PanelHeading {
            id: heading
            Layout.topMargin: 4
            text: panel.view.channels.channelCountText
        }
        ChannelFilters {
            id: filters
            browser: panel.view.channels
            placeholder: qsTr("Search channels")
        }
        ChannelList {
            id: list
            view: panel.view
            channels: panel.view.channels.networkChannels
            searchField: filters.searchField
            title: heading.text
            delegate: IPTVChannelRow {
                logos: panel.view.logos
                onClicked: list.keys.click(index)
                onSave: list.channels.saveToLocalM3U(index)
            }
        }
    }
    Item {
        Layout.fillHeight: true
        visible: panel.view.channels.networkChannels.totalCount === 0
    }

    Connections {
        target: panel.view

        function onIsStreamAddressFocusedChanged() {
            if (panel.view.isStreamAddressFocused)
                addressField.forceActiveFocus();
        }
    }
}
