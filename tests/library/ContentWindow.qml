// A main window without its menus.
import QtQuick
import QtQuick.Controls
import ZephPlayer.Library

ApplicationWindow {
    id: window

    required property ContentView view

    x: 100
    y: 100
    width: 800
    height: 500
    visible: true
    color: "black"

    ContentViewLayout {
        anchors.fill: parent
        view: window.view
    }
}
