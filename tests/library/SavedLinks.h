// Links to be saved in tests.
#pragma once

#include "sources/PlaylistEntry.h"

#include <QList>
#include <QStringList>

#include <functional>
#include <optional>

inline zeph::AddressText address(const QString &text)
{
    return zeph::AddressText::fromText(text).value();
}

/// Of a link that is called `name` and has an address of its own.
inline zeph::PlaylistEntry::Fields savedLinkFields(const QString &name)
{
    const QString file = QString::fromLatin1(QUrl::toPercentEncoding(name));
    return { QUuid::createUuid(), name, address(QStringLiteral("http://h/%1.m3u8").arg(file)), {},
        {}, {} };
}

inline zeph::PlaylistEntry savedLink(const QString &name)
{
    return zeph::PlaylistEntry(savedLinkFields(name));
}

/// The link "a" with something else about it.
inline zeph::PlaylistEntry savedLinkWith(
    const std::function<void(zeph::PlaylistEntry::Fields &)> &change)
{
    zeph::PlaylistEntry::Fields fields = savedLinkFields(QStringLiteral("a"));
    change(fields);
    return zeph::PlaylistEntry(fields);
}

/// The same of some group, from some country.
inline zeph::PlaylistEntry channel(const QString &name, const std::optional<QString> &group = {},
    const std::optional<QString> &country = {})
{
    zeph::PlaylistEntry::Fields fields = savedLinkFields(name);
    fields.groupTitle = group;
    fields.countryCode = country;
    return zeph::PlaylistEntry(fields);
}

/// Called after `name` and their places in the list.
inline QList<zeph::PlaylistEntry> savedLinks(const QString &name, int count)
{
    QList<zeph::PlaylistEntry> links;
    for (int i = 0; i < count; ++i)
        links << savedLink(name + QString::number(i));
    return links;
}

inline QStringList names(const QList<zeph::PlaylistEntry> &entries)
{
    QStringList names;
    for (const zeph::PlaylistEntry &entry : entries)
        names << entry.name();
    return names;
}
