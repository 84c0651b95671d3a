// The built player with a list of channels in its sidebar, of which each is known by the colour of
// its logo and of its picture. It is driven by keys and the mouse alone: over the accessibility
// bus it would have that to work for, too.
#pragma once

#include "Mouse.h"
#include "Players.h"
#include "Screen.h"

class ChannelSidebar {
public:
    using Colour = bool (*)(unsigned colour);

    /// Starts the player, and opens the list at `address` in it.
    ChannelSidebar(Screen &screen, const std::string &address);

    /// Puts the mouse on the row whose logo has this colour, once it is shown, and presses its
    /// button. False when it is not shown.
    bool aimAt(Colour logo);
    /// Lets the button go, which is what plays the channel.
    void click() { m_mouse.release(); }
    /// Waits for the picture of this colour. False when it is not seen.
    bool awaitPicture(Colour colour);

private:
    std::optional<Point> await(Colour colour);

    Screen &m_screen;
    Mouse m_mouse;
    const Program m_program { zeph().command };
};
