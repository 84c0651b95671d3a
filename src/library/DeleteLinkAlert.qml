// Asks before a saved link is deleted.
import QtQuick
import ZephPlayer.Library

ConfirmationAlert {
    required property ContentView view

    visible: view.confirmingLocalDelete
    title: qsTr("Delete Channel?")
    message: view.localDeleteMessage
    destructiveText: qsTr("Delete")
    onAccepted: view.deleteLocalEntry()
    onRejected: view.cancelLocalDelete()
}
