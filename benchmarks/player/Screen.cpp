#include "Screen.h"

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <thread>

namespace {

struct Free {
    void operator()(void *memory) const { std::free(memory); }
};
template <typename Reply> using Owned = std::unique_ptr<Reply, Free>;

} // namespace

Screen::Screen() : m_connection(xcb_connect(nullptr, nullptr))
{
    if (xcb_connection_has_error(m_connection)) {
        std::cerr << "There is no X display.\n";
        std::exit(1);
    }
    m_screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
}

Screen::~Screen()
{
    xcb_disconnect(m_connection);
}

void Screen::clear(unsigned colour)
{
    xcb_change_window_attributes(m_connection, m_screen->root, XCB_CW_BACK_PIXEL, &colour);
    xcb_clear_area(m_connection, 0, m_screen->root, 0, 0, 0, 0);
    xcb_flush(m_connection);
}

bool Screen::waitFor(int x, int y, const std::function<bool(unsigned)> &isWanted)
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (std::chrono::steady_clock::now() < deadline) {
        if (isWanted(colourAt(x, y)))
            return true;
        // A look takes some 50 µs of the display server's time, which is left free in between.
        std::this_thread::sleep_for(std::chrono::microseconds(500));
    }
    return false;
}

void Screen::resizeWindow(int width, int height)
{
    const Owned<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, m_screen->root), nullptr));
    const unsigned place[] { 0, 0, unsigned(width), unsigned(height) };
    for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i) {
        const xcb_window_t window = xcb_query_tree_children(tree.get())[i];
        const Owned<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
            m_connection, xcb_get_window_attributes(m_connection, window), nullptr));
        if (attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE)
            xcb_configure_window(m_connection, window,
                XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH
                    | XCB_CONFIG_WINDOW_HEIGHT,
                place);
    }
    xcb_flush(m_connection);
}

std::optional<Point> Screen::find(const std::function<bool(unsigned)> &isWanted)
{
    // Single pixels at the edges of letters have all sorts of colours.
    constexpr int least = 8;
    int length = 0;
    std::optional<Point> found;
    read({ 0, 0, m_screen->width_in_pixels, m_screen->height_in_pixels },
        [&](Point point, unsigned colour) {
            length = isWanted(colour) ? length + 1 : 0;
            if (length == least)
                found = point;
            return found.has_value();
        });
    return found;
}

unsigned Screen::colourAt(int x, int y)
{
    unsigned colour = 0;
    read({ int16_t(x), int16_t(y), 1, 1 }, [&](Point, unsigned seen) {
        colour = seen;
        return true;
    });
    return colour;
}

void Screen::read(const xcb_rectangle_t &part, const std::function<bool(Point, unsigned)> &look)
{
    const Owned<xcb_get_image_reply_t> image(xcb_get_image_reply(m_connection,
        xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, m_screen->root, part.x, part.y,
            part.width, part.height, ~0u),
        nullptr));
    if (!image)
        return;
    const uint8_t *pixel = xcb_get_image_data(image.get());
    for (int y = part.y; y < part.y + part.height; ++y) {
        for (int x = part.x; x < part.x + part.width; ++x, pixel += 4) {
            if (look({ x, y }, unsigned(pixel[2]) << 16 | unsigned(pixel[1]) << 8 | pixel[0]))
                return;
        }
    }
}
