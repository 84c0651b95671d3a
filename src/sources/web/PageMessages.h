// What our scripts in a page write to the console for us.
#pragma once

#include <QString>
#include <QUuid>

namespace zeph {

/// The messages of one page. Only it knows its key: neither the page before it, which stays until
/// the next one has come, nor an advertisement in a frame of it can speak in its name.
struct PageMessages {
    explicit PageMessages(const QString &key = QUuid::createUuid().toString(QUuid::Id128))
        : scriptRuns(QStringLiteral("zeph:script-runs ") + key)
        , scriptFailed(QStringLiteral("zeph:script-failed ") + key)
        , ready(QStringLiteral("zeph:ready ") + key)
    {
    }

    QString scriptRuns; ///< The service's player script runs.
    QString scriptFailed; ///< The service's player script cannot be had.
    QString ready; ///< The player is there, and takes commands.
};

} // namespace zeph
