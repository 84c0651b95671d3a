// The mouse cursor, as the display server draws it.
#pragma once

/// Whether there is nothing to see of it: all its pixels are transparent.
bool isCursorHidden();
