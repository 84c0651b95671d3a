// The web player that plays in place of the native one; empty while there is no web content.
import QtQuick
import ZephPlayer.Sources.Web

Loader {
    id: player

    /// Undefined when there is none.
    property var youtubeContent
    /// Undefined when there is none.
    property var okVideoContent

    sourceComponent: youtubeContent !== undefined ? youtube
        : okVideoContent !== undefined ? okVideo : null

    Component {
        id: youtube

        YouTubePlayerView {
            id: youtubeView
            content: player.youtubeContent

            WebPlayerContents {
                anchors.fill: parent
                view: youtubeView
            }
        }
    }

    Component {
        id: okVideo

        OKVideoPlayerView {
            id: okVideoView
            content: player.okVideoContent

            WebPlayerContents {
                anchors.fill: parent
                view: okVideoView
            }
        }
    }
}
