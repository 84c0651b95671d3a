// The main window.
import QtQuick
import QtQuick.Controls
import ZephPlayer.App
import ZephPlayer.Library

ApplicationWindow {
    id: window

    required property ContentView view
    required property MenuCommands commands

    /// What is made while the desktop is dark takes its colours from here. A window whose palette
    /// nobody asked for by then has none to give, and it would be light.
    readonly property Palette colors: palette

    visible: true
    color: "black"

    menuBar: MenuBar {
        visible: !window.view.isFullScreen
        delegate: MenuBarItem {
            Accessible.name: text.replace("&", "")
            Accessible.onPressAction: triggered()
        }

        CommandMenu {
            title: qsTr("&File")
            commands: window.commands.file
        }
        CommandMenu {
            title: qsTr("&Playback")
            commands: window.commands.playback
        }
        CommandMenu {
            title: qsTr("&View")
            commands: window.commands.view
        }
    }

    // The keys of the commands work whether or not a menu was ever opened.
    Instantiator {
        model: window.commands.withKeys
        delegate: Shortcut {
            required property MenuCommand modelData

            sequence: modelData.shortcut
            autoRepeat: false
            onActivated: modelData.trigger()
        }
    }

    WindowTitleSetter {
        title: window.view.model.title
        sidebarVisible: window.view.showSidebar
        mediaLoadID: window.view.model.mediaLoadID
        videoAspectRatio: window.view.model.videoAspectRatio
        videoAspectMediaLoadID: window.view.model.videoAspectMediaLoadID
        isFullScreen: window.view.isFullScreen
    }

    ContentViewLayout {
        anchors.fill: parent
        view: window.view
    }
}
