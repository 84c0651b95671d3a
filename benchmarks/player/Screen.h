// What the display shows, looked at from outside the program that shows it.
#pragma once

#include "Players.h"

#include <xcb/xcb.h>

#include <functional>
#include <optional>

/// Colours are 0xRRGGBB.
class Screen {
public:
    Screen();
    ~Screen();
    Screen(const Screen &) = delete;
    Screen &operator=(const Screen &) = delete;

    /// Paints the whole empty screen.
    void clear(unsigned colour);

    /// Looks at a point again and again until its colour is as wanted. False when that takes more
    /// than 20 seconds.
    bool waitFor(int x, int y, const std::function<bool(unsigned colour)> &isWanted);

    /// A point in the first area of such a colour, from above to below; nothing when there is
    /// none now.
    std::optional<Point> find(const std::function<bool(unsigned colour)> &isWanted);

    /// Moves the one window that is shown into the corner, and sizes it.
    void resizeWindow(int width, int height);

private:
    unsigned colourAt(int x, int y);
    /// Calls back for each of its points until that returns true.
    void read(const xcb_rectangle_t &part, const std::function<bool(Point, unsigned colour)> &look);

    xcb_connection_t *m_connection;
    xcb_screen_t *m_screen;
};
