// What a program keeps from one run to the next.
#pragma once

#include <QTemporaryDir>

/// Settings and saved links of its own, for the programs that start while it lives.
class OwnSettings {
public:
    OwnSettings()
    {
        qputenv("XDG_CONFIG_HOME", m_folder.path().toUtf8());
        qputenv("XDG_DATA_HOME", m_folder.path().toUtf8());
    }

    /// Where they are kept.
    QString path() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
};
