#include "platform/MpvHandle.h"

#include "platform/CertificateAuthorities.h"

#include <QByteArray>

namespace zeph {

namespace {

struct Option {
    const char *name;
    const char *value;
};

constexpr Option options[] = {
    // We draw the pictures, once there is something to draw them on (MediaPlayer switches over).
    { "vo", "null" },
    { "idle", "yes" },
    // The item stays at its end, with its last picture, and can be sought in.
    { "keep-open", "yes" },
    { "keep-open-pause", "no" },
    { "hr-seek", "yes" },
    // Pictures are wanted when they are due: nothing waits between us and the screen.
    { "video-timing-offset", "0" },
    // Every version's own choice until 0.37. The later one shows lines where Mesa draws on the CPU,
    // and is work for a weak graphics chip.
    { "scale", "bilinear" },
    { "dscale", "bilinear" },
    { "cscale", "bilinear" },
    // A machine without a sound device plays on in silence.
    { "audio-fallback-to-null", "yes" },
    { "audio-client-name", "Zeph Player" },
    { "network-timeout", "10" },

    // Nothing of the user's other players, and nothing that is not in the file asked for.
    { "config", "no" },
    { "terminal", "no" },
    { "load-scripts", "no" },
    { "ytdl", "no" },
    { "osc", "no" },
    { "osd-level", "0" },
    { "input-default-bindings", "no" },
    { "autoload-files", "no" },
    { "sub-auto", "no" },
    { "ordered-chapters", "no" },

    // Addresses are untrusted. Only this demuxer: the others read lists of further files. And no
    // "file" among the protocols that a playlist may name, or a channel could read the disk.
    { "tls-verify", "yes" },
    { "demuxer", "lavf" },
    { "demuxer-lavf-o",
        "protocol_whitelist=[http,https,httpproxy,tcp,tls,crypto,data,rtp,rtmp,udp,srt]" },
};

// Where sound can come from on a desktop, and silence. Left to itself the engine tries further
// ones, which stand on these, when there is no sound device: that is 0.1 s before the first
// picture.
constexpr const char *soundOutputs = "pipewire,pulse,alsa,jack,null";

// The scripts that are built into libmpv, each a thread and a Lua state of its own, for a user
// interface that we do not show. Which there are depends on the version.
constexpr const char *builtInScripts[] = {
    "load-stats-overlay",
    "load-osd-console",
    "load-console",
    "load-auto-profiles",
    "load-select",
    "load-positioning",
    "load-commands",
};

bool setUp(const MpvLibrary &mpv, mpv_handle *handle)
{
    for (const Option &option : options) {
        if (mpv.set_option_string(handle, option.name, option.value) < 0)
            return false;
    }
    // Where libmpv was built without one of them it takes none, and chooses by itself.
    mpv.set_option_string(handle, "ao", soundOutputs);
    for (const char *script : builtInScripts)
        mpv.set_option_string(handle, script, "no");
    if (const QByteArray authorities = certificateAuthorityFile(); !authorities.isEmpty())
        mpv.set_option_string(handle, "tls-ca-file", authorities.constData());
    return mpv.initialize(handle) >= 0;
}

} // namespace

std::shared_ptr<MpvHandle> MpvHandle::create()
{
    const MpvLibrary *mpv = MpvLibrary::load();
    if (!mpv)
        return nullptr;
    mpv_handle *handle = mpv->create();
    if (!handle)
        return nullptr;
    if (!setUp(*mpv, handle)) {
        mpv->terminate_destroy(handle);
        return nullptr;
    }
    return std::shared_ptr<MpvHandle>(new MpvHandle(*mpv, handle));
}

MpvHandle::MpvHandle(const MpvLibrary &library, mpv_handle *handle)
    : m_library(library), m_handle(handle)
{
}

MpvHandle::~MpvHandle()
{
    m_library.terminate_destroy(m_handle);
}

} // namespace zeph
