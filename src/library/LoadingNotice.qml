// Shows that a list of channels is on its way, and how much of it has come.
import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import ZephPlayer.Player
import ZephPlayer.Surface

RowLayout {
    id: notice

    required property PlayerModel model

    Layout.fillWidth: true
    visible: model.isLoading
    spacing: 8

    Accessible.role: Accessible.ProgressBar
    Accessible.name: label.text

    ActivityIndicator {
        implicitWidth: 16
        implicitHeight: 16
        color: label.palette.windowText
    }
    Label {
        id: label
        Layout.fillWidth: true
        text: qsTr("Loading: %1").arg(Qt.locale().formattedDataSize(notice.model.loadedBytes))
        textFormat: Text.PlainText
        font.pixelSize: 11
        opacity: 0.7
        elide: Text.ElideRight
        Accessible.ignored: true
    }
}
