// Commands to a running mpv.
#pragma once

#include <string>

class MpvSocket {
public:
    /// Waits until mpv listens at `path`.
    explicit MpvSocket(const std::string &path);
    ~MpvSocket();
    MpvSocket(const MpvSocket &) = delete;
    MpvSocket &operator=(const MpvSocket &) = delete;

    void load(const std::string &address) const;

private:
    int m_socket;
};
