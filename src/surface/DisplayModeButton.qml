// The button that opens the menu of display modes.
import QtQuick
import QtQuick.Templates as T
import ZephPlayer.Surface

ControlButton {
    id: button

    required property PlayerControlBar controlBar

    symbol: controlBar.displayModeSymbol
    help: qsTr("Video display mode")
    implicitWidth: 31
    T.ToolTip.visible: hovered && !down && !menu.item?.visible
    onClicked: {
        menu.active = true;
        if (menu.item.visible)
            menu.item.close();
        else
            menu.item.popup(button, 0, -menu.item.height - 4);
    }

    // By its name, so that the window does not wait for what is opened later, if at all.
    Loader {
        id: menu
        active: false
        Component.onCompleted: setSource("DisplayModeMenu.qml", { controlBar: button.controlBar })
    }
}
