// The players that are compared, and what has to be known of each.
#pragma once

#include "Program.h"

#include <string>
#include <vector>

struct Point {
    int x;
    int y;
};

struct Player {
    /// By which results are told apart.
    std::string name;
    /// What has to be installed for it; nothing for our own.
    std::string program;
    /// Starts it with an empty window.
    Command command;
    /// Where its window opens, on the screen of run-player-benchmarks.
    Point corner;
    /// What its window has around the picture, in width and height.
    Point chrome;
    /// Whether this colour, near the upper edge of its window, tells that the window is drawn. Of
    /// the other players any colour does, which is in their favour.
    bool (*isDrawn)(unsigned colour);

    bool isInstalled() const;
    /// Starts it with a file or an address.
    Command commandFor(const std::string &media) const;
};

Player zeph();
/// Another build of it.
Player otherBuild();
/// The least that a Qt Quick program can be.
Player emptyWindow();
Player mpv();
Player celluloid();
Player haruna();
/// Those that are installed.
std::vector<Player> otherPlayers();
/// Ours, and these.
std::vector<Player> allPlayers();
