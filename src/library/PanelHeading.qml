// What the part of a panel below it is about.
import QtQuick
import QtQuick.Layouts

// Not a Label, which would call itself static text.
Text {
    Layout.fillWidth: true
    textFormat: Text.PlainText
    font.pixelSize: 10
    font.weight: Font.DemiBold
    fontSizeMode: Text.HorizontalFit
    minimumPixelSize: 7
    opacity: 0.6
    color: palette.windowText
    elide: Text.ElideRight

    Accessible.role: Accessible.Heading
    Accessible.name: text
}
