// Chooses what the sidebar shows.
import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import ZephPlayer.Library
import ZephPlayer.Surface

SidebarItem {
    id: button

    required property ContentView view
    required property int section
    required property string title
    required property string symbol
    readonly property bool checked: view.selectedSidebarSection === section

    Layout.fillWidth: true
    implicitHeight: 26
    activeFocusOnTab: true
    onClicked: view.selectedSidebarSection = section

    Accessible.role: Accessible.RadioButton
    Accessible.name: title
    Accessible.description: help
    Accessible.checkable: true
    Accessible.checked: checked

    Row {
        anchors.centerIn: parent
        spacing: 6

        SystemImage {
            anchors.verticalCenter: parent.verticalCenter
            name: button.symbol
            pointSize: 12
            color: label.color
        }
        Label {
            id: label
            anchors.verticalCenter: parent.verticalCenter
            text: button.title
            font.pixelSize: 12
            Accessible.ignored: true
        }
    }

    states: State {
        name: "selected"
        when: button.checked
        PropertyChanges {
            button.plate.visible: true
            button.plate.color: Qt.alpha(button.palette.highlight, 0.22)
            label.font.weight: Font.DemiBold
        }
    }
}
