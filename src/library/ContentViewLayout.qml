// What the main window holds: the sidebar, and beside it the picture with the controls.
import QtQuick
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

        LoadedWhenShown {
            id: sidebar
            anchors.right: parent.right
            width: 246
            height: parent.height
            shown: content.view.showSidebar
            Component.onCompleted: setSource("Sidebar.qml", { view: content.view })
        }
    }

    PlayerArea {
        anchors.fill: parent
        anchors.leftMargin: sidebarSpace.width
        view: content.view
    }

    Repeater {
        model: content.view.editForms
        delegate: Loader {
            required property LocalM3UItemEditView modelData

            Component.onCompleted: setSource("LocalM3UItemEditSheet.qml", {
                form: modelData,
                logos: content.view.logos,
                visible: true
            })
        }
    }
    LoadedWhenShown {
        shown: content.view.confirmingLocalClear
        Component.onCompleted: setSource("ClearLinksAlert.qml", { view: content.view })
    }
    LoadedWhenShown {
        shown: content.view.confirmingLocalDelete
        Component.onCompleted: setSource("DeleteLinkAlert.qml", { view: content.view })
    }
}
