// Asks before all saved links are deleted.
import QtQuick
import ZephPlayer.Library

ConfirmationAlert {
    required property ContentView view

    visible: view.confirmingLocalClear
    title: qsTr("Delete All Local M3U8 Links?")
    message: qsTr("This permanently deletes every saved local M3U8 link. This action cannot be undone.")
    destructiveText: qsTr("Delete Permanently")
    onAccepted: view.clearLocalEntries()
    onRejected: view.confirmingLocalClear = false
}
