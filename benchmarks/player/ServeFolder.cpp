// Serves a folder over HTTP on this machine: serve-folder FOLDER. Prints the port.
#include <httplib.h>

#include <iostream>

int main(int argc, char *argv[])
{
    httplib::Server server;
    if (argc != 2 || !server.set_mount_point("/", argv[1]))
        return 2;
    std::cout << server.bind_to_any_port("127.0.0.1") << std::endl;
    return server.listen_after_bind() ? 0 : 1;
}
