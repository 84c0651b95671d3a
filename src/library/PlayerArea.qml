// The picture, and the controls: under it in a window, over it in full screen.
import QtQuick
import ZephPlayer.Library
import ZephPlayer.Surface

Item {
    id: area

    required property ContentView view

    PlayerSurface {
        id: surface
        anchors.fill: parent
        anchors.bottomMargin: controls.height
        model: area.view.model
        displayMode: area.view.controlBar.portraitMode
        fillScreen: area.view.isFullScreen
    }

    PlayerControlBarRow {
        id: controls
        anchors.bottom: parent.bottom
        anchors.horizontalCenter: parent.horizontalCenter
        width: parent.width
        controlBar: area.view.controlBar
    }

    states: [
        State {
            name: "fullScreen"
            when: area.view.isFullScreen && area.view.fullScreenControlsVisible
            extend: "fullScreenWithoutControls"
            PropertyChanges {
                controls.opacity: 1
                controls.visible: true
            }
        },
        State {
            name: "fullScreenWithoutControls"
            when: area.view.isFullScreen
            PropertyChanges {
                surface.anchors.bottomMargin: 0
                surface.toastMargin: controls.height + 2 * controls.anchors.bottomMargin
                controls.floating: true
                controls.width: Math.min(area.width - 48, 960)
                controls.anchors.bottomMargin: 24
                controls.opacity: 0
                controls.visible: false
            }
        }
    ]
    transitions: [
        Transition {
            from: "fullScreenWithoutControls"
            to: "fullScreen"
            NumberAnimation {
                property: "opacity"
                duration: 120
                easing.type: Easing.OutQuad
            }
        },
        Transition {
            from: "fullScreen"
            to: "fullScreenWithoutControls"
            SequentialAnimation {
                NumberAnimation {
                    property: "opacity"
                    duration: 200
                    easing.type: Easing.InQuad
                }
                PropertyAction {
                    property: "visible"
                }
            }
        }
    ]
}
