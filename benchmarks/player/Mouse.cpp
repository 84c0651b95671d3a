#include "Mouse.h"

#include <xcb/xtest.h>

Mouse::Mouse() : m_connection(xcb_connect(nullptr, nullptr)) { }

Mouse::~Mouse()
{
    xcb_disconnect(m_connection);
}

void Mouse::move(Point point)
{
    act(XCB_MOTION_NOTIFY, 0, point);
}

void Mouse::press()
{
    act(XCB_BUTTON_PRESS, 1);
}

void Mouse::release()
{
    act(XCB_BUTTON_RELEASE, 1);
}

void Mouse::act(uint8_t event, uint8_t button, Point point)
{
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
    xcb_test_fake_input(
        m_connection, event, button, XCB_CURRENT_TIME, root, int16_t(point.x), int16_t(point.y), 0);
    xcb_flush(m_connection);
}
