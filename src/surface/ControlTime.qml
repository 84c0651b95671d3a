// A time in the control bar.
import QtQuick
import QtQuick.Templates as T

T.Label {
    textFormat: Text.PlainText
    horizontalAlignment: Text.AlignHCenter
    font.family: "monospace"
    font.pixelSize: 11
    color: palette.windowText
    opacity: 0.6
}
