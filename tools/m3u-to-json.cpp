// m3u-to-json BASE-ADDRESS < LIST: the entries of a list as a JSON array, one entry a line. For
// comparing with other parsers, and for reports of lists that are read wrongly.
#include "sources/PlaylistEntryJson.h"
#include "sources/PlaylistParser.h"

#include <QFile>

#include <cstdio>

using namespace zeph;

namespace {

enum ExitStatus { success, failure, wrongUsage };

bool print(const QList<PlaylistEntry> &entries)
{
    const char *separator = "[";
    for (const PlaylistEntry &entry : entries) {
        const QByteArray json = playlistEntryToJson(entry);
        std::fputs(separator, stdout);
        if (std::fwrite(json.constData(), 1, static_cast<std::size_t>(json.size()), stdout)
            != static_cast<std::size_t>(json.size()))
            return false;
        separator = ",\n";
    }
    if (entries.isEmpty())
        std::fputs(separator, stdout);
    std::fputs("]\n", stdout);
    return std::fflush(stdout) == 0;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fputs("usage: m3u-to-json BASE-ADDRESS < LIST\n", stderr);
        return wrongUsage;
    }
    const auto base = AddressText::fromText(QString::fromLocal8Bit(argv[1]));
    if (!base || !base->isAbsolute()) {
        std::fprintf(stderr, "m3u-to-json: not an absolute address: %s\n", argv[1]);
        return wrongUsage;
    }
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly)) {
        std::fputs("m3u-to-json: cannot read the standard input\n", stderr);
        return failure;
    }
    const QByteArray bytes = input.readAll();
    if (input.error() != QFile::NoError) {
        std::fprintf(stderr, "m3u-to-json: %s\n", qPrintable(input.errorString()));
        return failure;
    }
    if (!print(PlaylistParser::parse(PlaylistText::fromBytes(bytes), base->toUrl()))) {
        std::perror("m3u-to-json");
        return failure;
    }
    return success;
}
