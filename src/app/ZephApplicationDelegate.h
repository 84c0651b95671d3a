// What the application answers to the system.
#pragma once

namespace zeph {

class ZephApplicationDelegate {
public:
    /// Closing the main window quits the application.
    bool applicationShouldTerminateAfterLastWindowClosed() const { return true; }
    /// The main window opens by itself.
    void applicationDidFinishLaunching() const { }
};

} // namespace zeph
