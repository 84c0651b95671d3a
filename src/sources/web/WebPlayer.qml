// The web player that plays in place of the native one; empty while there is no web content.
import QtQuick
import ZephPlayer.Sources.Web

Loader {
    id: player

    /// Undefined when there is none.
    property var youtubeContent
    /// Undefined when there is none.
    property var okVideoContent

    /// By its name, so that a player which shows no page does not load it.
    readonly property string contents: "WebPlayerContents.qml"

    sourceComponent: youtubeContent !== undefined ? youtube
        : okVideoContent !== undefined ? okVideo : null

    Component {
        id: youtube

        YouTubePlayerView {
            id: youtubeView
            content: player.youtubeContent

            Loader {
                anchors.fill: parent
                Component.onCompleted: setSource(player.contents, { view: youtubeView })
            }
        }
    }

    Component {
        id: okVideo

        OKVideoPlayerView {
            id: okVideoView
            content: player.okVideoContent

            Loader {
                anchors.fill: parent
                Component.onCompleted: setSource(player.contents, { view: okVideoView })
            }
        }
    }
}
