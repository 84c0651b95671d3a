// A real window with the player's surface, for tests that look into web pages.
#pragma once

#include "player/PlayerModel.h"
#include "sources/web/WebPlayerView.h"
#include "support/StandInPanels.h"

#include <QJsonValue>
#include <QQuickView>
#include <QTest>

#include <functional>
#include <memory>

/// Only within `run`. The window is closed when this is destroyed.
class PlayerWindow {
public:
    PlayerWindow();

    /// Calls `body` with an application object that is fit for such windows, and answers with what
    /// it does.
    static int run(int argc, char *argv[], const std::function<int()> &body);
    /// The warnings of this process since the last call. Qt's own about its types are left out.
    static QStringList takeWarnings();

    zeph::PlayerModel &model() { return m_model; }
    QQuickView &window() { return m_window; }

    /// The first item of a class; null when there is none.
    QQuickItem *item(const char *className) const;
    /// The view of the service's player that is shown; null when there is none.
    zeph::WebPlayerView *playerView() const;
    /// The web view in it; null when there is none.
    QQuickItem *webView() const;

    void open(const QString &address) { m_model.openRemote(address, {}); }
    /// A property of the page's video element, which may be in a frame; null when there is none.
    QJsonValue videoValue(const char *name);
    /// Whether that element plays.
    bool plays();

    /// The value of an expression in the page; null when there is no page, or no value.
    QJsonValue valueInPage(const QString &expression);

    /// Presses and releases a button in the middle of the window.
    void click(Qt::MouseButton button = Qt::LeftButton);
    void doubleClick();
    /// Presses the button of the message in place of the page, which has to be shown.
    void clickRetry();
    /// Presses and releases a key of the display's keyboard, named as for xdotool.
    void press(const QString &key);

private:
    QPoint middle() const;

    StandInPanels m_panels;
    zeph::PlayerModel m_model { m_panels };
    QQuickView m_window;
    std::unique_ptr<QObject> m_questioner;
};
