// The main window.
import QtQuick
import QtQuick.Controls
import ZephPlayer.App
import ZephPlayer.Library
import ZephPlayer.Player

ApplicationWindow {
    id: window

    required property PlayerModel model
    required property MenuCommands commands

    visible: true
    color: "black"

    menuBar: MenuBar {
        CommandMenu {
            title: qsTr("&File")
            commands: window.commands.file
        }
        CommandMenu {
            title: qsTr("&Playback")
            commands: window.commands.playback
        }
    }

    // The keys of the commands work whether or not a menu was ever opened.
    Instantiator {
        model: window.commands.withKeys
        delegate: Shortcut {
            required property MenuCommand modelData

            sequence: modelData.shortcut
            onActivated: modelData.trigger()
        }
    }

    WindowTitleSetter {
        title: window.model.title
        sidebarVisible: false
        mediaLoadID: window.model.mediaLoadID
        videoAspectRatio: window.model.videoAspectRatio
        videoAspectMediaLoadID: window.model.videoAspectMediaLoadID
        isFullScreen: false
    }

    ContentView {
        anchors.fill: parent
        model: window.model
    }
}
