// Some words of explanation in a panel.
import QtQuick
import QtQuick.Controls
import QtQuick.Layouts

Label {
    Layout.fillWidth: true
    textFormat: Text.PlainText
    wrapMode: Text.Wrap
    font.pixelSize: 11
    opacity: 0.6
}
