#include "library/ChannelMetadata.h"

#include "platform/RegionNames.h"

#include <QCoreApplication>

namespace zeph {

namespace {

QString countryName(const PlaylistEntry &entry)
{
    const auto code = entry.countryCode();
    return code ? regionName(*code) : QString();
}

QString joined(const QString &country, const QString &group)
{
    return country.isEmpty() || group.isEmpty() ? country + group
                                                : country + QStringLiteral("  \u00b7  ") + group;
}

} // namespace

QString channelMetadata(const PlaylistEntry &entry)
{
    const QString metadata = playlistEntryMetadata(entry);
    return metadata.isEmpty() ? QCoreApplication::translate("ChannelMetadata", "Other") : metadata;
}

QString playlistEntryMetadata(const PlaylistEntry &entry)
{
    return joined(countryName(entry), entry.groupTitle().value_or(QString()));
}

} // namespace zeph
