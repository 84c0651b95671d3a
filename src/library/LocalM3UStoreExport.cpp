// The saved links as a file.
#include "library/LocalM3UStore.h"

#include "library/M3UText.h"
#include "platform/AtomicFile.h"
#include "platform/FilePanels.h"
#include "player/PlayerModel.h"

#include <QLocale>

namespace zeph {

void LocalM3UStore::exportLocalPlaylistAsM3U()
{
    if (m_entries.isEmpty())
        return;
    const auto url = m_panels.chooseSaveFile({ tr("Export Local M3U Playlist"), tr("Export"),
        defaultExportM3UFilename(), tr("M3U playlist"), QStringLiteral("m3u") });
    if (!url)
        return;
    if (const auto error = replaceFile(url->toLocalFile(), m3uText(m_entries)))
        m_panels.showWarning({ tr("Could Not Export M3U Playlist"), *error });
    else
        m_model.showToast(tr("Exported: ") + url->fileName(), toastNanoseconds);
}

QString LocalM3UStore::defaultExportM3UFilename(QDate today)
{
    const QString date = QLocale().toString(today, QStringLiteral("yyyy-MM-dd"));
    return QStringLiteral("ZephPlayer %1.m3u").arg(date);
}

} // namespace zeph
