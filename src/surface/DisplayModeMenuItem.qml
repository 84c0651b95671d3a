// A display mode in their menu.
import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import ZephPlayer.Surface

MenuItem {
    id: item

    required property PlayerControlBar controlBar
    required property var modelData

    text: modelData.title
    checkable: true
    autoExclusive: true
    checked: modelData.mode === controlBar.portraitMode
    indicator: null
    onTriggered: controlBar.selectDisplayMode(modelData.mode)

    Accessible.name: modelData.title
    Accessible.checkable: checkable
    Accessible.checked: checked
    Accessible.onPressAction: triggered()

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
            opacity: item.checked ? 1 : 0
        }
    }
}
