// What went wrong.
import QtQuick
import QtQuick.Layouts
import ZephPlayer.Library

// Not a Label, which would call itself static text.
Text {
    Layout.fillWidth: true
    visible: text.length > 0
    textFormat: Text.PlainText
    wrapMode: Text.Wrap
    font.pixelSize: 11
    color: WarningColor.on(palette.window)

    Accessible.role: Accessible.AlertMessage
    Accessible.name: text
}
