#include "ChannelSidebar.h"

#include "Measuring.h"

#include <cstdlib>
#include <thread>

namespace {

/// The button that shows the sidebar, in the player's window as it opens.
constexpr Point sidebarButton { 145, 413 };

} // namespace

ChannelSidebar::ChannelSidebar(Screen &screen, const std::string &address) : m_screen(screen)
{
    const Player player = zeph();
    m_screen.waitFor(player.corner.x + 300, player.corner.y + 12, player.isDrawn);
    m_mouse.move({ player.corner.x + sidebarButton.x, player.corner.y + sidebarButton.y });
    m_mouse.press();
    m_mouse.release();
    // Until the sidebar is there, whose address field then has the keys.
    std::this_thread::sleep_for(std::chrono::seconds(2));
    const std::string keys = "xdotool search --all --onlyvisible --pid "
        + std::to_string(m_program.id()) + " --name . windowfocus --sync type --delay 20 '"
        + address + '\'';
    if (std::system(keys.c_str()) != 0)
        std::abort();
}

bool ChannelSidebar::aimAt(Colour logo)
{
    const std::optional<Point> point = await(logo);
    if (!point)
        return false;
    m_mouse.move(*point);
    m_mouse.press();
    return true;
}

bool ChannelSidebar::awaitPicture(Colour colour)
{
    const Player player = zeph();
    return m_screen.waitFor(player.corner.x + 600, player.corner.y + 200, colour);
}

std::optional<Point> ChannelSidebar::await(Colour colour)
{
    constexpr auto patience = std::chrono::seconds(20);
    const auto deadline = Clock::now() + patience;
    std::optional<Point> point = m_screen.find(colour);
    while (!point && Clock::now() < deadline) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        point = m_screen.find(colour);
    }
    return point;
}
