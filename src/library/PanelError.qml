// What went wrong.
import QtQuick
import QtQuick.Layouts

// Not a Label, which would call itself static text.
Text {
    Layout.fillWidth: true
    visible: text.length > 0
    textFormat: Text.PlainText
    wrapMode: Text.Wrap
    font.pixelSize: 11
    color: palette.window.hslLightness < 0.5 ? "#ff8a80" : "#b3261e"

    Accessible.role: Accessible.AlertMessage
    Accessible.name: text
}
