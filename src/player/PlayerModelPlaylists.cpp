// Lists of channels, from the network and from files.
#include "player/PlayerModel.h"

#include "platform/AtomicFile.h"
#include "platform/Download.h"
#include "platform/FilePanels.h"
#include "sources/UrlPath.h"

#include <QFile>

namespace zeph {

namespace {

struct FileBytes {
    QByteArray bytes;
    QString errorText; ///< Empty when the file was read.
};

FileBytes readFile(const QString &path)
{
    // Opening a pipe that nobody writes to would never return.
    if (!isFileOrNothing(path))
        return { {}, PlayerModel::tr("It is not a file.") };
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return { {}, file.errorString() };
    const qint64 limit = DownloadLimits().size;
    if (file.size() > limit)
        return { {}, Download::tooLargeText(limit) };
    const QByteArray bytes = file.readAll();
    return { bytes, file.error() == QFile::NoError ? QString() : file.errorString() };
}

} // namespace

void PlayerModel::loadM3U(const QUrl &url, const QString &displayName, QUuid requestID)
{
    publish(m_isLoading, true, &PlayerModel::isLoadingChanged);
    publish(m_loadedBytes, qint64 { 0 }, &PlayerModel::loadedBytesChanged);
    auto *download = new Download(url, {}, this);
    connect(download, &Download::receivedBytesChanged, this, [=, this] {
        if (requestID == m_remoteRequestID)
            publish(m_loadedBytes, download->receivedBytes(), &PlayerModel::loadedBytesChanged);
    });
    connect(download, &Download::succeeded, this, [=, this] {
        download->deleteLater();
        readM3U(download->takeBody(), url, displayName, requestID);
    });
    connect(download, &Download::failed, this, [=, this](const QString &errorText) {
        download->deleteLater();
        failLoading(errorText, requestID);
    });
}

void PlayerModel::openPlaylistFile(const QUrl &file)
{
    m_remoteRequestID = QUuid::createUuid();
    publish(m_errorMessage, {}, &PlayerModel::errorMessageChanged);
    publish(m_playlist, {}, &PlayerModel::playlistChanged);
    publish(m_isLoading, true, &PlayerModel::isLoadingChanged);
    publish(m_loadedBytes, qint64 { 0 }, &PlayerModel::loadedBytesChanged);
    const FileBytes list = readFile(file.toLocalFile());
    if (list.errorText.isEmpty())
        readM3U(list.bytes, file, lastPathComponentWithoutExtension(file), m_remoteRequestID);
    else
        failLoading(list.errorText, m_remoteRequestID);
}

void PlayerModel::readM3U(
    const QByteArray &bytes, const QUrl &url, const QString &displayName, QUuid requestID)
{
    if (requestID != m_remoteRequestID)
        return;
    const auto finish = [=, this](const PlaylistReading &reading) {
        if (const auto *error = std::get_if<PlaylistError>(&reading))
            failLoading(playlistErrorDescription(*error), requestID);
        else
            finishLoading(std::get<QList<PlaylistEntry>>(reading), displayName, requestID);
    };
    readPlaylistInBackground(bytes, url, this, finish);
}

void PlayerModel::finishLoading(
    const QList<PlaylistEntry> &entries, const QString &displayName, QUuid requestID)
{
    if (requestID != m_remoteRequestID)
        return;
    publish(m_playlist, entries, &PlayerModel::playlistChanged);
    publish(m_title, trimmedOrNothing(displayName).value_or(tr("IPTV Playlist")),
        &PlayerModel::titleChanged);
    publish(m_isLoading, false, &PlayerModel::isLoadingChanged);
}

void PlayerModel::failLoading(const QString &errorText, QUuid requestID)
{
    if (requestID != m_remoteRequestID)
        return;
    publish(m_errorMessage, tr("Could not open playlist: ") + errorText,
        &PlayerModel::errorMessageChanged);
    publish(m_isLoading, false, &PlayerModel::isLoadingChanged);
}

std::optional<QList<PlaylistEntry>> PlayerModel::importLocalM3U(const QString &displayName)
{
    const auto url = m_panels.chooseFile({ tr("Import M3U Playlist"), tr("Playlists"),
        { QStringLiteral("m3u"), QStringLiteral("m3u8"), QStringLiteral("txt") }, tr("Import") });
    if (!url)
        return std::nullopt;
    m_remoteRequestID = QUuid::createUuid();
    publish(m_errorMessage, {}, &PlayerModel::errorMessageChanged);
    publish(m_isLoading, false, &PlayerModel::isLoadingChanged);

    const FileBytes file = readFile(url->toLocalFile());
    if (!file.errorText.isEmpty())
        return failImport(file.errorText);
    const PlaylistReading reading = readPlaylist(file.bytes, *url);
    if (const auto *error = std::get_if<PlaylistError>(&reading))
        return failImport(playlistErrorDescription(*error));
    const auto &entries = std::get<QList<PlaylistEntry>>(reading);
    publish(m_playlist, entries, &PlayerModel::playlistChanged);
    publish(m_title,
        trimmedOrNothing(displayName).value_or(lastPathComponentWithoutExtension(*url)),
        &PlayerModel::titleChanged);
    return entries;
}

std::nullopt_t PlayerModel::failImport(const QString &errorText)
{
    publish(m_playlist, {}, &PlayerModel::playlistChanged);
    publish(m_errorMessage, tr("Could not import playlist: ") + errorText,
        &PlayerModel::errorMessageChanged);
    return std::nullopt;
}

} // namespace zeph
