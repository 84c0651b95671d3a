// What running processes hold, as the system counts it.
#pragma once

#include <QtGlobal>

struct ProcessFigures {
    qint64 memory = 0; ///< KiB; what processes share counts for each of them.
    qint64 anonymousMemory = 0; ///< KiB; the part of it that is no file's.
    int fileDescriptors = 0;
    int threads = 0;
    int processes = 0; ///< Also those that have ended and that nobody has asked about.

    ProcessFigures &operator+=(const ProcessFigures &other);
};

/// A process that is not there holds nothing.
ProcessFigures figuresOf(qint64 processId);
/// Of all that the process has started, and of what these have started, together.
ProcessFigures figuresOfDescendants(qint64 processId);
