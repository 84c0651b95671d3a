// One running instance of libmpv's player core.
#pragma once

#include "platform/MpvLibrary.h"

#include <memory>

namespace zeph {

/// Owns a player core, set up the way we want it. Shared by the client that commands it and the
/// renderer that draws its pictures, and shut down when the last of them lets go.
class MpvHandle {
public:
    /// Loads libmpv if need be, then creates and starts a core: some 80 ms, meant for a background
    /// thread. Null when that fails. Any thread; LC_NUMERIC must be "C" in the process.
    static std::shared_ptr<MpvHandle> create();

    ~MpvHandle();
    MpvHandle(const MpvHandle &) = delete;
    MpvHandle &operator=(const MpvHandle &) = delete;

    const MpvLibrary &library() const { return m_library; }
    mpv_handle *get() const { return m_handle; }

private:
    MpvHandle(const MpvLibrary &library, mpv_handle *handle);

    const MpvLibrary &m_library;
    mpv_handle *const m_handle;
};

} // namespace zeph
