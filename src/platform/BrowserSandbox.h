// Whether this process may run a web browser.
#pragma once

namespace zeph {

enum class BrowserSandbox {
    Available,
    /// The browser does not sandbox pages for the root user.
    RefusedToRoot,
    /// The kernel does not let users make the namespaces that the sandbox stands on.
    Missing,
};

/// Where it is not `Available`, the browser would end the whole process as soon as it is started.
/// A user who has turned the sandbox off with QTWEBENGINE_DISABLE_SANDBOX=1 does not need it.
BrowserSandbox browserSandbox();

} // namespace zeph
