// What the main window holds: the sidebar, and beside it the picture with the controls.
import QtQuick
import QtQuick.Controls
import ZephPlayer.Library
import ZephPlayer.Surface

Item {
    id: content

    required property ContentView view

    Component.onCompleted: view.appear(Window.window)

    DropArea {
        anchors.fill: parent
        keys: "text/uri-list"
        onEntered: drag => drag.accepted = content.view.acceptsDrop(drag.urls)
        onDropped: drop => content.view.drop(drop.urls)
    }

    // Slides in from the edge, and takes its room from the picture.
    Item {
        id: sidebarSpace

        height: parent.height
        clip: true
        visible: width > 0

        states: State {
            name: "shown"
            when: content.view.showSidebar
            PropertyChanges {
                sidebarSpace.width: sidebar.width
            }
        }
        transitions: Transition {
            NumberAnimation {
                property: "width"
                duration: content.view.sidebarAnimation
                easing.type: Easing.InOutQuad
            }
        }

        Sidebar {
            id: sidebar
            anchors.right: parent.right
            height: parent.height
            view: content.view
        }
    }

    PlayerArea {
        anchors.fill: parent
        anchors.leftMargin: sidebarSpace.width
        view: content.view
    }

    Repeater {
        model: content.view.editForms
        delegate: Item {
            id: sheetPlace

            required property LocalM3UItemEditView modelData

            LocalM3UItemEditSheet {
                form: sheetPlace.modelData
                logos: content.view.logos
                visible: true
            }
        }
    }

    ConfirmationAlert {
        visible: content.view.confirmingLocalClear
        title: qsTr("Delete All Local M3U8 Links?")
        message: qsTr("This permanently deletes every saved local M3U8 link. This action cannot be undone.")
        destructiveText: qsTr("Delete Permanently")
        onAccepted: content.view.clearLocalEntries()
        onRejected: content.view.confirmingLocalClear = false
    }

    ConfirmationAlert {
        visible: content.view.confirmingLocalDelete
        title: qsTr("Delete Channel?")
        message: content.view.localDeleteMessage
        destructiveText: qsTr("Delete")
        onAccepted: content.view.deleteLocalEntry()
        onRejected: content.view.cancelLocalDelete()
    }
}
