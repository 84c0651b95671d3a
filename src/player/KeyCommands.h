// Which key does what.
#pragma once

#include <QKeyEvent>

#include <optional>

namespace zeph {

enum class KeyAction {
    Skip,
    AdjustVolume,
    TogglePlayback,
    Stop,
};

struct KeyCommand {
    KeyAction action;
    /// Seconds for `Skip`, a part of the full volume for `AdjustVolume`.
    double amount = 0;
    /// A key that is held down does it again and again.
    bool repeats = false;

    bool operator==(const KeyCommand &) const = default;
};

/// What a press asks of the player; nothing when the key is not one of the player's. Keys are known
/// by their place on the keyboard, so that they are the same with every layout. Any thread.
std::optional<KeyCommand> keyCommand(const QKeyEvent &press);

} // namespace zeph
