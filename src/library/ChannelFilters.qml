// The search field and the two filter menus above a list of channels.
import QtQuick
import QtQuick.Layouts
import ZephPlayer.Library

ColumnLayout {
    id: filters

    required property ChannelBrowser browser
    required property string placeholder
    readonly property alias searchField: searchField

    spacing: 4

    SidebarTextField {
        id: searchField
        Layout.fillWidth: true
        placeholderText: filters.placeholder
        text: filters.browser.channelSearch
        onTextChanged: filters.browser.channelSearch = text
    }
    RowLayout {
        spacing: 4

        FilterMenu {
            choices: filters.browser.countryChoices
            symbol: "globe"
            help: qsTr("Show the channels of one country")
        }
        FilterMenu {
            choices: filters.browser.categoryChoices
            symbol: "square.grid.2x2"
            help: qsTr("Show the channels of one category")
        }
    }
}
