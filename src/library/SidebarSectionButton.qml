// Chooses what the sidebar shows.
import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import ZephPlayer.Library
import ZephPlayer.Surface

AbstractButton {
    id: button

    required property ContentView view
    required property int section
    required property string title
    required property string symbol

    Layout.fillWidth: true
    implicitHeight: 26
    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    checked: view.selectedSidebarSection === section
    onClicked: view.selectedSidebarSection = section

    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    Accessible.role: Accessible.RadioButton
    Accessible.name: title
    Accessible.checkable: true
    Accessible.checked: checked

    background: Rectangle {
        id: plate
        radius: 6
        color: Qt.alpha(button.palette.windowText, 0.08)
        visible: button.hovered

        FocusRing {
            visible: button.visualFocus
        }
    }

    contentItem: Item {
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
    }

    states: State {
        name: "selected"
        when: button.checked
        PropertyChanges {
            plate.visible: true
            plate.color: Qt.alpha(button.palette.highlight, 0.22)
            label.font.weight: Font.DemiBold
        }
    }
}
