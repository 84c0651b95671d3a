// Both video services on this machine, under their own names.
#pragma once

#include "support/TestAuthority.h"
#include "support/TestServer.h"

#include <QTemporaryDir>

#include <optional>

/// Serves stand-ins of the services' pages over https, with a real video, and makes the browser of
/// this process take them for the services. To be made before the application object.
class VideoServices {
public:
    VideoServices();

    zeph::TestServer &youTube() { return *m_youTube; }
    zeph::TestServer &ok() { return *m_ok; }
    /// https://stranger.example, whose certificate the browser has no reason to trust.
    zeph::TestServer &stranger() { return *m_stranger; }

    /// The home folder of this process.
    QString home() const { return m_home.path(); }

    /// Serves everything as it was at first, after a test has made something misbehave.
    void restore();

private:
    QTemporaryDir m_home;
    zeph::TestAuthority m_authority;
    zeph::TestAuthority m_unknownAuthority;
    std::optional<zeph::TestServer> m_youTube;
    std::optional<zeph::TestServer> m_ok;
    std::optional<zeph::TestServer> m_stranger;
};
