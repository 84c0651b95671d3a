// Shows that the keys go to what it surrounds.
import QtQuick

Rectangle {
    anchors.fill: parent
    anchors.margins: -2
    radius: 6
    color: "transparent"
    border.color: palette.highlight
    border.width: 2
}
