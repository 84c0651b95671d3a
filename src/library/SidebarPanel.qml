// Shows a panel while its section is selected.
import QtQuick
import QtQuick.Layouts
import ZephPlayer.Library
import ZephPlayer.Surface

LoadedWhenShown {
    id: panel

    required property ContentView view
    required property int section
    /// The panel's.
    required property string file

    Layout.fillWidth: true
    Layout.fillHeight: true
    visible: false
    opacity: 0
    shown: view.selectedSidebarSection === section
    Component.onCompleted: setSource(file, { view: view })

    states: State {
        name: "selected"
        when: panel.shown
        PropertyChanges {
            panel.visible: true
            panel.opacity: 1
        }
    }
    transitions: Transition {
        to: "selected"
        NumberAnimation {
            property: "opacity"
            duration: 120
        }
    }
}
