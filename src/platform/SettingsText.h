// The text of the settings file.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QSettings>

#include <optional>

namespace zeph {

/// Lines of keys and values below the names of their sections, as in the INI files that QSettings
/// writes, which can read these, too. QSettings' own way with them will not do: a disk that runs
/// full while it writes leaves half a file that it calls a success, its reading may construct any
/// kind of object, and long texts take it five times as long. Here every value is a text; a line
/// that holds none is kept as it is.
///
/// In the map a text is a QByteArray in UTF-8, and a value that is none a QString. Keys of a
/// section begin with its name and a slash.
QSettings::SettingsMap settingsFromText(QByteArrayView text);
QByteArray settingsToText(const QSettings::SettingsMap &settings);

} // namespace zeph
