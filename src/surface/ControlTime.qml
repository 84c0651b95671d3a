// A time in the control bar.
import QtQuick
import QtQuick.Controls

Label {
    textFormat: Text.PlainText
    horizontalAlignment: Text.AlignHCenter
    font.family: "monospace"
    font.pixelSize: 11
    opacity: 0.6
}
