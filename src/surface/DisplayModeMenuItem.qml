// A display mode in their menu.
import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import ZephPlayer.Surface

MenuItem {
    id: item

    required property PlayerControlBar controlBar
    required property var modelData
    readonly property bool isCurrent: modelData.mode === controlBar.portraitMode

    text: modelData.title
    onTriggered: controlBar.selectDisplayMode(modelData.mode)

    Accessible.role: Accessible.RadioButton
    Accessible.name: modelData.title
    Accessible.checkable: true
    Accessible.checked: isCurrent

    contentItem: RowLayout {
        spacing: 8

        SystemImage {
            name: item.modelData.symbol
            pointSize: 13
            color: label.color
        }
        Label {
            id: label
            Layout.fillWidth: true
            text: item.modelData.title
            color: item.highlighted ? item.palette.highlightedText : item.palette.windowText
            Accessible.ignored: true
        }
        SystemImage {
            name: "checkmark.circle.fill"
            pointSize: 12
            color: label.color
            opacity: item.isCurrent ? 1 : 0
        }
    }
}
