// A command in a menu: its title, and at the far end its key.
import QtQuick
import QtQuick.Controls
import ZephPlayer.App

MenuItem {
    id: item

    required property MenuCommand modelData

    text: modelData.title
    onTriggered: modelData.trigger()

    Accessible.name: modelData.title
    Accessible.onPressAction: triggered()

    Label {
        anchors.right: parent.right
        anchors.rightMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        text: item.modelData.shortcut
        opacity: 0.6
        color: item.highlighted ? item.palette.highlightedText : item.palette.text
        Accessible.ignored: true
    }
}
