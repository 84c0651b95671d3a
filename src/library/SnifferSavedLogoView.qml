// A logo by itself: its picture, or the symbol `fallback` while there is none.
import QtQuick
import ZephPlayer.Library

LogoView {
    required property string fallback

    implicitWidth: 40
    implicitHeight: 40
    symbol: fallback
}
