#include "sources/web/YouTubePage.h"

#include "sources/ServiceHosts.h"
#include "sources/web/JavaScriptString.h"

namespace zeph {

QString youTubePage(const YouTubeContent &content, const PageMessages &messages)
{
    return QStringLiteral(R"html(<!doctype html>
<html>
<head>
<meta name="referrer" content="strict-origin-when-cross-origin">
<meta name="viewport" content="width=device-width,initial-scale=1">
<style>
html, body, #player { margin: 0; width: 100%; height: 100%; overflow: hidden; background: #000; }
iframe { width: 100%; height: 100%; border: 0; }
</style>
</head>
<body>
<div id="player"></div>
<script src="https://www.%1/iframe_api" onerror="console.info('%5')"></script>
<script>
var player;

function onYouTubeIframeAPIReady() {
    console.info('%6');
    var parameters = {
        autoplay: 1, controls: 1, playsinline: 1, rel: 0, enablejsapi: 1, origin: %2
    };
    var videoID = %3;
    var playlistID = %4;
    if (playlistID) {
        parameters.listType = 'playlist';
        parameters.list = playlistID;
    }
    var options = {
        width: '100%',
        height: '100%',
        playerVars: parameters,
        events: {
            onReady: function (event) {
                event.target.playVideo();
                console.info('%7');
            }
        }
    };
    if (videoID)
        options.videoId = videoID;
    player = new YT.Player('player', options);
}

function zephToggle() {
    if (!player || !player.getPlayerState)
        return;
    if (player.getPlayerState() === YT.PlayerState.PLAYING)
        player.pauseVideo();
    else
        player.playVideo();
}

function zephSkip(seconds) {
    if (player && player.getCurrentTime)
        player.seekTo(Math.max(0, player.getCurrentTime() + seconds), true);
}

function zephSetVolume(value) {
    if (!player)
        return;
    player.unMute();
    player.setVolume(Math.round(value * 100));
}

function zephSetMuted(muted) {
    if (!player)
        return;
    if (muted)
        player.mute();
    else
        player.unMute();
}
</script>
</body>
</html>
)html")
        .arg(youTubeMainHost, javaScriptString(webOrigin), javaScriptString(content.videoID),
            javaScriptString(content.playlistID), messages.scriptFailed, messages.scriptRuns,
            messages.ready);
}

} // namespace zeph
