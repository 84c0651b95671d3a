// A menu that chooses one value of those that occur in a list of channels. It may hold thousands.
import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import ZephPlayer.Library
import ZephPlayer.Surface

SidebarItem {
    id: button

    required property FilterChoices choices
    required property string symbol

    Layout.fillWidth: true
    Layout.preferredWidth: 1
    implicitHeight: 24
    activeFocusOnTab: true
    tellsHelp: !popup.visible
    onClicked: popup.open()

    Accessible.role: Accessible.ButtonMenu
    Accessible.name: choices.label
    Accessible.description: help

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 5
        anchors.rightMargin: 5
        spacing: 5

        SystemImage {
            name: button.symbol
            pointSize: 11
            color: label.color
        }
        Label {
            id: label
            Layout.fillWidth: true
            text: button.choices.label
            textFormat: Text.PlainText
            font.pixelSize: 11
            color: Qt.alpha(button.palette.windowText, 0.75)
            horizontalAlignment: Text.AlignLeft
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }

    states: State {
        name: "filtering"
        when: button.choices.isFiltering
        PropertyChanges {
            button.plate.visible: true
            button.plate.color: Qt.alpha(button.palette.highlight, 0.22)
            label.color: button.palette.windowText
        }
    }

    Popup {
        id: popup

        y: button.height + 2
        width: 226
        height: Math.min(items.contentHeight + topPadding + bottomPadding, 320)
        margins: 6
        padding: 4
        modal: true
        dim: false
        focus: true

        background: Rectangle {
            radius: 7
            color: popup.palette.window
            border.color: Qt.alpha(popup.palette.windowText, 0.2)
        }

        contentItem: ListView {
            id: items

            clip: true
            focus: true
            model: button.choices
            boundsBehavior: Flickable.StopAtBounds
            highlightMoveDuration: 0
            ScrollBar.vertical: ScrollBar {}

            Accessible.role: Accessible.PopupMenu
            Accessible.name: button.help

            FilterMenuKeys {
                choices: button.choices
                list: items
                rowsPerPage: items.height * items.count / items.contentHeight
            }

            delegate: FilterMenuItem {
                width: ListView.view.width
                onClicked: {
                    items.currentIndex = index;
                    button.choices.choose(index);
                    popup.close();
                }
            }
        }
    }
}
