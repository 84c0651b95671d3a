// Shows what is in it while its section is selected.
import QtQuick
import QtQuick.Layouts
import ZephPlayer.Library

Item {
    id: panel

    required property ContentView view
    required property int section

    Layout.fillWidth: true
    Layout.fillHeight: true
    visible: false
    opacity: 0

    states: State {
        name: "selected"
        when: panel.view.selectedSidebarSection === panel.section
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
