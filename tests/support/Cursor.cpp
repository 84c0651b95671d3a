#include "support/Cursor.h"

#include <algorithm>
#include <memory>

// Last: its macros have the names of other people's things.
#include <X11/extensions/Xfixes.h>

bool isCursorHidden()
{
    const std::unique_ptr<Display, decltype(&XCloseDisplay)> display(
        XOpenDisplay(nullptr), &XCloseDisplay);
    int firstEvent = 0;
    int firstError = 0;
    if (!display || !XFixesQueryExtension(display.get(), &firstEvent, &firstError))
        return false;
    const std::unique_ptr<XFixesCursorImage, decltype(&XFree)> image(
        XFixesGetCursorImage(display.get()), &XFree);
    if (!image)
        return false;
    const auto count = size_t(image->width) * image->height;
    return std::all_of(image->pixels, image->pixels + count,
        [](unsigned long pixel) { return (pixel >> 24 & 0xff) == 0; });
}
