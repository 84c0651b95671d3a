// The logo in a row: its picture, or a television set while there is none.
import QtQuick
import ZephPlayer.Library

LogoView {
    implicitWidth: 28
    implicitHeight: 28
    symbol: "tv"
}
