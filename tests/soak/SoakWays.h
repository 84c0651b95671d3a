// Names and ways that the parts of the soak's user share.
#pragma once

#include "app/SidebarPlayer.h"

inline const QString openMedia = QStringLiteral("Open Media");
inline const QString openPanel = QStringLiteral("Choose Media to Play");
inline const QString importPanel = QStringLiteral("Import M3U Playlist");
inline const QString logoPanel = QStringLiteral("Choose TV Logo");
inline const QString exportPanel = QStringLiteral("Export Local M3U Playlist");
inline const QString clearNetworkButton =
    QStringLiteral("Clear playlist and stop network playback");
inline const QString movieNameField = QStringLiteral("Movie or Playlist Name (optional)");
inline const QString noLinks =
    QStringLiteral("No local M3U8 links yet. Choose an M3U file or click + to add a link.");
inline const QString normalMode = QStringLiteral("Normal");
inline const QString smartReframe = QStringLiteral("Smart Reframe");
inline const QStringList sections { networkSection, networkSection, localSection };
inline const QSize restSize(1000, 700);

/// Whether it comes to be. Not as long as what has to come to be.
inline bool soon(const std::function<bool()> &condition)
{
    return QTest::qWaitFor(condition, 5000);
}

inline bool awaitThat(const std::function<bool()> &condition)
{
    return QTest::qWaitFor(condition, patience);
}

inline void resize(const XWindow &window, const QSize &size)
{
    xdotool({ QStringLiteral("windowsize"), window.id(), QString::number(size.width()),
        QString::number(size.height()) });
}

/// The newest one of this title; null when there is none.
inline XWindow panelCalled(const QString &title)
{
    const QString found = xdotool({ QStringLiteral("search"), QStringLiteral("--onlyvisible"),
        QStringLiteral("--name"), u'^' + title });
    return XWindow(found.section(u'\n', -1));
}

inline void click(const char *button)
{
    xdotool({ QStringLiteral("click"), QLatin1StringView(button) });
}
