// The parser, and what is promised of its entries.
#include "sources/PlaylistEntryJson.h"
#include "sources/PlaylistParser.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace zeph;

namespace {

void require(bool promise)
{
    if (!promise)
        qFatal("a promise is broken");
}

void check(const PlaylistEntry &entry)
{
    require(!entry.name().isEmpty());
    require(entry.url().isValid() && !entry.url().isRelative());
    require(!entry.logoURL() || entry.logoURL()->isValid());
    require(!entry.groupTitle() || !entry.groupTitle()->isEmpty());
    require(!entry.countryCode() || !entry.countryCode()->isEmpty());
    const auto json = QJsonDocument::fromJson(playlistEntryToJson(entry)).object();
    require(playlistEntryFromJson(json) == entry);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const QUrl base(QStringLiteral("http://h/list/p.m3u?q#f"));
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    for (const PlaylistEntry &entry : PlaylistParser::parse(PlaylistText::fromBytes(bytes), base))
        check(entry);
    return 0;
}
