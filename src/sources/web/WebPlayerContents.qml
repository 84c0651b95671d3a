// The browser of a web player's view, and what it says when there is nothing to see.
import QtQuick
import ZephPlayer.Sources.Web

Item {
    id: contents

    required property QtObject view

    Loader {
        anchors.fill: parent
        active: contents.view.wantsBrowser
        // By its name, so that the browser is not looked for before it is wanted.
        source: "WebPlayerBrowser.qml"
        onLoaded: contents.view.browser = item
        onStatusChanged: {
            if (status === Loader.Error)
                contents.view.browserIsMissing();
        }
    }

    WebPlayerMessage {
        anchors.fill: parent
        visible: contents.view.failure.length > 0
        message: contents.view.failure
        canRetry: contents.view.canRetry
        onPressed: contents.view.messagePressed()
        onRetry: contents.view.retry()
    }
}
