// What the tests of the store of saved links share.
#pragma once

#include "Library.h"
#include "platform/SettingsText.h"
#include "SavedLinks.h"
#include "sources/PlaylistEntryJson.h"
#include "support/Patience.h"

#include <QTemporaryDir>

/// Gives each test a settings file of its own, which is not there yet.
class StoreTest : public QObject {
    Q_OBJECT

protected:
    std::optional<QTemporaryDir> m_folder;
    QString m_file;

private Q_SLOTS:
    void init()
    {
        m_folder.emplace();
        QVERIFY(m_folder->isValid());
        m_file = m_folder->filePath(QStringLiteral("test.conf"));
    }
};

/// The text of a settings file with `json` stored in it.
inline QByteArray settingsWith(const QByteArray &json)
{
    return zeph::settingsToText({ { zeph::LocalM3UStore::defaultsKey(), json } });
}

/// What the settings file holds, read without the help of any cache.
inline std::optional<QList<zeph::PlaylistEntry>> storedEntries(const QString &file)
{
    const QVariant json =
        zeph::settingsFromText(contentOf(file)).value(zeph::LocalM3UStore::defaultsKey());
    return zeph::playlistFromJson(json.toByteArray());
}
