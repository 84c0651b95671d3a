// A logo on a plate: its picture, or a symbol while there is none.
import QtQuick
import ZephPlayer.Library
import ZephPlayer.Surface

Rectangle {
    id: view

    required property QtObject loader
    required property url url
    required property string symbol
    property alias delay: image.delay

    radius: 5
    color: Qt.alpha(palette.windowText, 0.06)

    LogoImage {
        id: image
        anchors.fill: parent
        anchors.margins: 2
        loader: view.loader
        url: view.url
    }
    SystemImage {
        anchors.centerIn: parent
        visible: !image.hasImage
        name: view.symbol
        pointSize: Math.round(view.height * 0.45)
        color: Qt.alpha(view.palette.windowText, 0.45)
    }
}
