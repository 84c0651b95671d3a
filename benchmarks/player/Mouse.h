// The mouse, as if a user held it.
#pragma once

#include "Players.h"

#include <xcb/xcb.h>

class Mouse {
public:
    Mouse();
    ~Mouse();
    Mouse(const Mouse &) = delete;
    Mouse &operator=(const Mouse &) = delete;

    void move(Point point);
    void press();
    void release();

private:
    void act(uint8_t event, uint8_t button, Point point = {});

    xcb_connection_t *m_connection;
};
