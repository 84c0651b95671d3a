// Saved links, from the lists that they come from to the file that keeps them.
#pragma once

#include "library/LocalM3UStore.h"
#include "platform/SettingsText.h"
#include "sources/PlaylistEntryJson.h"
#include "support/Files.h"

/// A list of channels that are called after `name`, a word, "WORD 0" and so on. None can be played.
inline QByteArray listOf(int count, const QByteArray &name)
{
    QByteArray list = "#EXTM3U\n";
    for (int i = 0; i < count; ++i) {
        const QByteArray number = QByteArray::number(i);
        list += "#EXTINF:-1," + name + ' ' + number + "\nhttp://127.0.0.1:9/" + name + '/' + number
            + ".m3u8\n";
    }
    return list;
}

/// The settings file in the folder that XDG_CONFIG_HOME names.
inline QString settingsFile(const QString &folder)
{
    return folder + QStringLiteral("/ZephPlayer/Zeph Player.conf");
}

/// Names of the links that a settings file holds; nothing when it holds no list.
inline std::optional<QStringList> storedNames(const QString &file)
{
    const QVariant json =
        zeph::settingsFromText(contentOf(file)).value(zeph::LocalM3UStore::defaultsKey());
    const auto entries = zeph::playlistFromJson(json.toByteArray());
    if (!entries)
        return std::nullopt;
    QStringList names;
    for (const zeph::PlaylistEntry &entry : *entries)
        names += entry.name();
    return names;
}
