// The sidebar: a section, and above it the buttons that choose it.
import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import ZephPlayer.Library

Pane {
    id: sidebar

    required property ContentView view

    padding: 10

    background: Rectangle {
        color: sidebar.palette.window

        Rectangle {
            anchors.right: parent.right
            width: 1
            height: parent.height
            color: Qt.alpha(sidebar.palette.windowText, 0.14)
        }
    }

    Accessible.role: Accessible.Pane
    Accessible.name: qsTr("Sidebar")

    ColumnLayout {
        anchors.fill: parent
        spacing: 10

        RowLayout {
            Layout.fillWidth: true
            spacing: 4

            SidebarSectionButton {
                view: sidebar.view
                section: PlayerSidebarSection.Network
                title: qsTr("Network")
                help: qsTr("Streams and lists of channels from the network")
                symbol: "network"
            }
            SidebarSectionButton {
                view: sidebar.view
                section: PlayerSidebarSection.LocalM3U
                title: qsTr("Local M3U")
                help: qsTr("Saved links")
                symbol: "folder"
            }
        }

        Rectangle {
            Layout.fillWidth: true
            implicitHeight: 1
            color: Qt.alpha(sidebar.palette.windowText, 0.14)
        }

        SidebarPanel {
            section: PlayerSidebarSection.Network
            view: sidebar.view
            file: "NetworkPanel.qml"
        }
        SidebarPanel {
            section: PlayerSidebarSection.LocalM3U
            view: sidebar.view
            file: "LocalM3UPanel.qml"
        }
    }
}
