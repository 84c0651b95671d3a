#include "Players.h"

#include "Measuring.h"

#include <sstream>
#include <unistd.h>

namespace {

// Where there is no sound device, mpv and VLC would look for one with every file, which is no part
// of what is compared: they are told to be silent.

/// VLC does not run for root: it is started as nobody then, with a home of its own.
Command vlcCommand()
{
    Command command { "vlc", "--aout=adummy", "--no-qt-privacy-ask", "--no-qt-error-dialogs",
        "--no-osd" };
    if (::geteuid() == 0) {
        const Command asNobody { "setpriv", "--reuid=nobody", "--regid=nogroup", "--clear-groups",
            "env", "--unset=XDG_RUNTIME_DIR", "HOME=" + variable("ZEPH_HOME_OF_NOBODY") };
        command.insert(command.begin(), asNobody.begin(), asNobody.end());
    }
    return command;
}

} // namespace

bool Player::isInstalled() const
{
    std::istringstream folders(variable("PATH"));
    for (std::string folder; std::getline(folders, folder, ':');) {
        if (::access((folder + '/' + program).c_str(), X_OK) == 0)
            return true;
    }
    return false;
}

Command Player::commandFor(const std::string &media) const
{
    Command withMedia = command;
    // What mpv needs for an empty window.
    std::erase(withMedia, "--idle");
    std::erase(withMedia, "--force-window");
    withMedia.push_back(media);
    return withMedia;
}

Player zeph()
{
    return { "Zeph", {}, { variable("ZEPH_PLAYER") }, { 610, 385 }, { 0, 60 }, isLight };
}

Player otherBuild()
{
    Player player = zeph();
    player.command = { variable("ZEPH_OTHER_PLAYER") };
    return player;
}

Player emptyWindow()
{
    return { "empty Qt Quick window", {}, { variable("ZEPH_EMPTY_WINDOW") }, {}, {}, isLight };
}

Player mpv()
{
    return { "mpv", "mpv",
        { "mpv", "--no-config", "--idle", "--force-window", "--keep-open", "--ao=null",
            "--geometry=+0+0" },
        {}, {}, isSeen };
}

Player celluloid()
{
    return { "Celluloid", "celluloid", { "celluloid" }, {}, { 9, 90 }, isSeen };
}

Player haruna()
{
    return { "Haruna", "haruna", { "haruna" }, {}, { 0, 105 }, isSeen };
}

std::vector<Player> otherPlayers()
{
    std::vector<Player> players { mpv(),
        { "VLC", "vlc", vlcCommand(), { 660, 390 }, { 0, 74 }, isSeen }, celluloid(), haruna() };
    std::erase_if(players, [](const Player &player) { return !player.isInstalled(); });
    return players;
}

std::vector<Player> allPlayers()
{
    std::vector<Player> players = otherPlayers();
    players.insert(players.begin(), zeph());
    return players;
}
