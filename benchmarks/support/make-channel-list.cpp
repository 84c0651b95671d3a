// make-channel-list COUNT > LIST: the list that the benchmarks read, for other programs.
#include "support/ChannelList.h"

#include <cstdio>

int main(int argc, char **argv)
{
    bool isNumber = false;
    const int count = argc == 2 ? QByteArray(argv[1]).toInt(&isNumber) : 0;
    if (!isNumber || count < 0) {
        std::fputs("usage: make-channel-list COUNT > LIST\n", stderr);
        return 2;
    }
    const QByteArray list = zeph::bench::channelList(count);
    const auto size = static_cast<std::size_t>(list.size());
    return std::fwrite(list.constData(), 1, size, stdout) == size && !std::fflush(stdout) ? 0 : 1;
}
