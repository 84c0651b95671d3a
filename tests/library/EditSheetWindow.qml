// A window with the sheet in it, as it is over a main window.
import QtQuick
import QtQuick.Controls
import ZephPlayer.Library

ApplicationWindow {
    id: window

    required property LocalM3UItemEditView form
    property alias sheet: sheet

    width: 700
    height: 430
    visible: true
    color: "black"

    LocalM3UItemEditSheet {
        id: sheet
        form: window.form
        visible: true
    }
}
