// A menu that chooses one value of those that occur in a list of channels. It may hold thousands.
import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import ZephPlayer.Library
import ZephPlayer.Surface

AbstractButton {
    id: button

    required property FilterChoices choices
    required property string symbol
    required property string help

    Layout.fillWidth: true
    Layout.preferredWidth: 1
    implicitHeight: 24
    leftPadding: 5
    rightPadding: 5
    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    onClicked: popup.open()

    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    Accessible.role: Accessible.ButtonMenu
    Accessible.name: choices.label
    Accessible.description: help
    ToolTip.text: help
    ToolTip.visible: hovered && !down && !popup.visible
    ToolTip.delay: Qt.styleHints.mousePressAndHoldInterval

    background: Rectangle {
        id: plate
        radius: 5
        color: Qt.alpha(button.palette.windowText, 0.08)
        visible: false

        FocusRing {
            anchors.margins: 0
            radius: 5
            visible: button.activeFocus
        }
    }

    contentItem: RowLayout {
        spacing: 5

        SystemImage {
            id: image
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
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }

    states: [
        State {
            name: "filtering"
            when: button.choices.isFiltering
            PropertyChanges {
                plate.visible: true
                plate.color: Qt.alpha(button.palette.highlight, 0.22)
                label.color: button.palette.windowText
            }
        },
        State {
            name: "pointedAt"
            when: button.hovered || button.activeFocus || popup.visible
            PropertyChanges {
                plate.visible: true
            }
        }
    ]

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
            reuseItems: true
            boundsBehavior: Flickable.StopAtBounds
            highlightMoveDuration: 0
            ScrollBar.vertical: ScrollBar {}

            Accessible.role: Accessible.PopupMenu
            Accessible.name: button.help

            delegate: FilterMenuItem {
                width: ListView.view.width
                onClicked: {
                    button.choices.choose(index);
                    popup.close();
                }
            }
        }
    }
}
