// The application.
#pragma once

#include "app/MenuCommands.h"
#include "app/MprisService.h"
#include "app/ZephApplicationDelegate.h"
#include "library/ContentView.h"
#include "platform/Delay.h"
#include "platform/DesktopAppearance.h"
#include "platform/FilePanels.h"
#include "platform/SleepInhibitor.h"
#include "platform/UserDefaults.h"
#include "player/PlayerModel.h"

#include <QQmlEngine>

#include <memory>

class QUrl;

namespace zeph {

/// Owns the one player model, the menus and the main window for the whole life of the process.
class ZephPlayerApp {
public:
    /// Runs the program; returns its exit status.
    static int run(int argc, char *argv[]);

    ZephPlayerApp();

    /// Says that something is about to be played: its player loads while the window is made.
    void preparePlayer();
    /// Opens the main window. False when it cannot be made.
    bool showMainWindow();
    /// The desktop hands over an address or a file.
    void openUrl(const QUrl &url);

private:
    /// Gives memory back once what was open has been put away, unless something else is open then.
    void tidyUpWhenSettled();
    /// Says so, and ends the program with a failure.
    void tellThatNothingCanBeDrawn(const QString &reason);

    Delay m_tidying;
    ZephApplicationDelegate m_appDelegate;
    DesktopAppearance m_appearance;
    DesktopFilePanels m_panels;
    PlayerModel m_player { m_panels };
    UserDefaults m_defaults;
    ContentView m_view { m_player, m_defaults, m_panels };
    MenuCommands m_commands { m_view };
    MprisService m_mpris { m_view };
    SleepInhibitor m_sleepInhibitor { QStringLiteral("Playing media") };
    QQmlEngine m_engine;
    std::unique_ptr<QObject> m_window;
};

} // namespace zeph
