// load-channel-list LIST: loads a list and ends, for timing the whole process next to other
// players.
#include "sources/PlaylistParser.h"

#include <QFile>

#include <cstdio>

int main(int argc, char **argv)
{
    QFile file(argc == 2 ? QString::fromLocal8Bit(argv[1]) : QString());
    if (!file.open(QIODevice::ReadOnly)) {
        std::fputs("usage: load-channel-list LIST\n", stderr);
        return 2;
    }
    const auto text = zeph::PlaylistText::fromBytes(file.readAll());
    const auto entries = zeph::PlaylistParser::parse(text, QUrl::fromLocalFile(file.fileName()));
    std::printf("%lld entries\n", static_cast<long long>(entries.size()));
    return 0;
}
