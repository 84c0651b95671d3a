// Stands in for the video service's player script: its player is a frame that plays a real video.
// Tests read what was asked of it from `stub`.
window.stub = { calls: [], options: null, frame: {} };

var YT = {
    PlayerState: { ENDED: 0, PLAYING: 1, PAUSED: 2 },

    Player: function (elementId, options) {
        var player = this;
        stub.options = {
            width: options.width,
            height: options.height,
            videoId: options.videoId,
            hasVideoId: 'videoId' in options,
            playerVars: options.playerVars
        };

        var frame = document.createElement('iframe');
        frame.allow = 'autoplay; fullscreen';
        frame.src = 'https://www.youtube.com/embed/' + encodeURIComponent(options.videoId || 'videoseries')
            + '?' + new URLSearchParams(options.playerVars);
        document.getElementById(elementId).replaceWith(frame);

        function addCommand(name) {
            player[name] = function () {
                var values = Array.prototype.slice.call(arguments);
                stub.calls.push([name].concat(values));
                frame.contentWindow.postMessage({ name: name, values: values }, '*');
            };
        }

        // As with the real one, the commands come into being when the frame is ready.
        function becomeReady() {
            ['playVideo', 'pauseVideo', 'seekTo', 'mute', 'unMute', 'setVolume'].forEach(addCommand);
            player.getPlayerState = function () {
                return stub.frame.paused ? YT.PlayerState.PAUSED : YT.PlayerState.PLAYING;
            };
            player.getCurrentTime = function () {
                return stub.frame.currentTime;
            };
            options.events.onReady({ target: player });
        }

        window.addEventListener('message', function (event) {
            if (event.source !== frame.contentWindow)
                return;
            var isFirst = stub.frame.currentTime === undefined;
            stub.frame = event.data;
            if (isFirst)
                becomeReady();
        });
    }
};

// The real one fetches its greater part first, which takes longer than reading the page to its end.
document.addEventListener('DOMContentLoaded', function () { onYouTubeIframeAPIReady(); });
