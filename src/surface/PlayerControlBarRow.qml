// The row of controls under the picture.
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import ZephPlayer.Surface

T.ToolBar {
    id: row

    required property PlayerControlBar controlBar
    /// It lies over the picture.
    property bool floating: false

    implicitHeight: 34
    topPadding: 0
    bottomPadding: 0
    leftPadding: 10
    rightPadding: 10

    Accessible.name: qsTr("Playback controls")

    background: Rectangle {
        id: plate
        color: row.palette.window
    }

    states: State {
        name: "floating"
        when: row.floating
        PropertyChanges {
            plate.radius: 10
            plate.color: Qt.alpha(row.palette.window, 0.92)
        }
    }

    contentItem: RowLayout {
        spacing: 5

        ControlButton {
            symbol: "backward.fill"
            help: qsTr("Skip back 10 seconds")
            onClicked: row.controlBar.model.skip(-10)
        }
        ControlButton {
            symbol: row.controlBar.playSymbol
            help: row.controlBar.playHelp
            prominent: true
            onClicked: row.controlBar.model.togglePlayback()
        }
        ControlButton {
            symbol: "stop.fill"
            help: qsTr("Stop")
            onClicked: row.controlBar.model.stop()
        }
        ControlButton {
            symbol: "forward.fill"
            help: qsTr("Skip forward 10 seconds")
            onClicked: row.controlBar.model.skip(10)
        }

        Rectangle {
            Layout.leftMargin: 1
            Layout.rightMargin: 1
            implicitWidth: 1
            implicitHeight: 22
            color: Qt.alpha(row.palette.windowText, 0.14)
        }

        ControlButton {
            symbol: "list.bullet"
            help: qsTr("Show or hide sidebar")
            onClicked: row.controlBar.toggleSidebar()
        }
        ControlTime {
            Layout.preferredWidth: 44
            text: row.controlBar.elapsedTime
            Accessible.name: qsTr("Elapsed time: %1").arg(text)
        }
        ControlSlider {
            Layout.fillWidth: true
            help: qsTr("Position")
            to: row.controlBar.seekRange
            value: row.controlBar.seekPosition
            onPressedChanged: row.controlBar.seeking = pressed
            onValueChanged: row.controlBar.moveSeekSlider(value)
        }
        ControlTime {
            Layout.preferredWidth: 52
            text: row.controlBar.remainingTime
            Accessible.name: qsTr("Remaining time: %1").arg(text)
        }
        ControlButton {
            symbol: row.controlBar.muteSymbol
            help: qsTr("Mute or unmute")
            onClicked: row.controlBar.model.toggleMute()
        }
        ControlSlider {
            implicitWidth: 78
            help: qsTr("Volume")
            value: row.controlBar.model.volume
            onPressedChanged: row.controlBar.settingVolume = pressed
            onValueChanged: row.controlBar.setVolume(value)
        }
        DisplayModeButton {
            controlBar: row.controlBar
        }
        ControlButton {
            symbol: "arrow.up.left.and.arrow.down.right"
            help: qsTr("Enter full screen")
            onClicked: row.controlBar.toggleFullScreen()
        }
    }
}
