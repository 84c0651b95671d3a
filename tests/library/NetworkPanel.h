// A window with the network panel, and what is in it.
#pragma once

#include "ContentWindow.h"
#include "support/TestServer.h"

inline const QString addressField = QStringLiteral("Stream address");
inline const QString nameField = QStringLiteral("Movie or Playlist Name (optional)");
inline const QString addName = QStringLiteral("Add an optional movie or playlist name");
inline const QString hideName = QStringLiteral("Hide movie or playlist name");
inline const QString searchField = QStringLiteral("Search channels");
inline const QString path = QStringLiteral("/list.m3u");

inline const QByteArray fewChannels =
    "#EXTM3U\n"
    "#EXTINF:-1 tvg-country=\"DE\" group-title=\"News\",One\n/1.m3u8\n"
    "#EXTINF:-1 tvg-country=\"AT\" group-title=\"Sports\",Two\n/2.m3u8\n"
    "#EXTINF:-1,Three news\n/3.m3u8\n";

/// Serves a list at `path`, which `showsList` opens.
struct Panel : ContentWindow {
    zeph::TestServer server { folder.path() };
    Driver user = driver();

    explicit Panel(const QByteArray &list = fewChannels)
    {
        server.serve(path, list);
        view.controlBar()->toggleSidebar();
    }

    bool isUp()
    {
        return ContentWindow::isUp()
            && QTest::qWaitFor(
                [this] {
                    return user.focused() == addressField && user.shows(addressField)
                        && user.pointIn(addressField, 0).x() == 10;
                },
                patience);
    }
    /// Opens the list, and waits until its channels are there.
    bool showsList()
    {
        view.setAddress(server.url(path).toString());
        view.openStream();
        return isUp()
            && QTest::qWaitFor(
                [this] { return view.channels()->networkChannels()->count() > 0; }, patience)
            && QTest::qWaitForWindowExposed(window, patience);
    }
    void type(const QString &text) const
    {
        for (const QChar letter : text)
            QTest::sendKeyEvent(QTest::Click, window, Qt::Key_unknown, letter, {});
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(window, key, modifiers);
    }
};
