// What a soak opens: files, streams, lists of channels and web videos, many of them broken.
#pragma once

#include "sources/web/VideoServices.h"
#include "support/LiveStream.h"
#include "support/TestServer.h"

#include <QTemporaryDir>

/// Serves it while it lives. To be made before the application object.
class SoakMedia {
public:
    SoakMedia();

    /// Paths of files that play, or do not.
    const QStringList &files() const { return m_files; }
    /// The same and more, by web addresses.
    QStringList streams() const;
    /// Addresses of lists with a few channels.
    QStringList shortLists() const;
    /// Address of a list with 100,000.
    QString longList() const { return m_server.url(QStringLiteral("/long.m3u")).toString(); }
    /// Addresses of what does not become a list.
    QStringList brokenLists() const;
    /// Addresses of videos of the services.
    QStringList webVideos() const;
    /// Path of a file with a few links to keep.
    QString linksFile() const { return m_folder.filePath(QStringLiteral("links.m3u")); }
    /// Path of a file to be written.
    QString exportFile() const { return m_folder.filePath(QStringLiteral("exported.m3u")); }

private:
    QByteArray shortList(int first, int count) const;

    VideoServices m_services;
    QTemporaryDir m_folder;
    QStringList m_files;
    zeph::TestServer m_server;
    zeph::TestServer m_station;
    zeph::LiveStream m_stream;
};
