#include "MpvSocket.h"

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

MpvSocket::MpvSocket(const std::string &path)
    : m_socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    sockaddr_un address {};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (::connect(m_socket, reinterpret_cast<sockaddr *>(&address), sizeof address) != 0) {
        if (std::chrono::steady_clock::now() > deadline)
            std::abort();
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

MpvSocket::~MpvSocket()
{
    ::close(m_socket);
}

void MpvSocket::load(const std::string &address) const
{
    const std::string command = "{\"command\":[\"loadfile\",\"" + address + "\"]}\n";
    if (::write(m_socket, command.data(), command.size()) != ssize_t(command.size()))
        std::abort();
}
