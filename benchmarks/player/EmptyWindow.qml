// A window with nothing in it, for comparison.
import QtQuick

Window {
    width: 700
    height: 430
    visible: true
    color: "white"
}
