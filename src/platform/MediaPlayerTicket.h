// How an answer of the engine is known to belong to a question of the media player.
#pragma once

#include <QtGlobal>

namespace zeph {

// What is asked of the engine carries its purpose in the lowest bits, and above them the number of
// the load or jump that it belongs to.
enum class Purpose : quint64 {
    Load,
    Seek,
    Position,
    Landing,
    Duration,
    Seekable,
    FrameRate,
    VideoTrack,
    Item,
    End
};
constexpr int purposeBits = 4;

constexpr quint64 ticket(Purpose purpose, quint64 owner)
{
    return owner << purposeBits | static_cast<quint64>(purpose);
}

} // namespace zeph
