#include "player/KeyCommands.h"

#include <algorithm>
#include <iterator>

namespace zeph {

namespace {

struct Key {
    quint32 scanCode; ///< As X11 and Wayland number the keys.
    Qt::Key key; ///< For presses that do not come from a keyboard.
};

constexpr Key left { 113, Qt::Key_Left };
constexpr Key right { 114, Qt::Key_Right };
constexpr Key up { 111, Qt::Key_Up };
constexpr Key down { 116, Qt::Key_Down };
constexpr Key space { 65, Qt::Key_Space };
constexpr Key k { 45, Qt::Key_K };

struct Row {
    Key key;
    Qt::KeyboardModifiers modifiers; ///< At least these.
    std::optional<KeyCommand> command;
};

constexpr KeyCommand skip(double seconds)
{
    return { KeyAction::Skip, seconds };
}

constexpr KeyCommand adjustVolume(double delta)
{
    return { KeyAction::AdjustVolume, delta, true };
}

constexpr std::nullopt_t passOn = std::nullopt;

// The first row that fits counts.
constexpr Row rows[] = {
    { left, Qt::ControlModifier | Qt::AltModifier, skip(-300) },
    { left, Qt::ControlModifier, skip(-60) },
    { left, Qt::AltModifier, skip(-20) },
    { left, Qt::ShiftModifier, passOn },
    { left, Qt::MetaModifier, passOn },
    { left, Qt::NoModifier, skip(-5) },

    { right, Qt::ControlModifier | Qt::AltModifier, skip(300) },
    { right, Qt::ControlModifier, skip(60) },
    { right, Qt::AltModifier, skip(20) },
    { right, Qt::ShiftModifier, passOn },
    { right, Qt::MetaModifier, passOn },
    { right, Qt::NoModifier, skip(5) },

    { up, Qt::ShiftModifier, adjustVolume(0.01) },
    { up, Qt::ControlModifier, adjustVolume(0.2) },
    { up, Qt::AltModifier, adjustVolume(0.1) },
    { up, Qt::MetaModifier, passOn },
    { up, Qt::NoModifier, adjustVolume(0.05) },

    { down, Qt::ShiftModifier, adjustVolume(-0.01) },
    { down, Qt::ControlModifier, adjustVolume(-0.2) },
    { down, Qt::AltModifier, adjustVolume(-0.1) },
    { down, Qt::MetaModifier, passOn },
    { down, Qt::NoModifier, adjustVolume(-0.05) },

    { space, Qt::NoModifier, KeyCommand { KeyAction::TogglePlayback } },
    { k, Qt::ControlModifier, KeyCommand { KeyAction::Stop } },
};

bool isKey(const QKeyEvent &press, const Key &key)
{
    return press.nativeScanCode() != 0 ? press.nativeScanCode() == key.scanCode
                                       : press.key() == key.key;
}

} // namespace

std::optional<KeyCommand> keyCommand(const QKeyEvent &press)
{
    const auto fits = [&press](const Row &row) {
        return isKey(press, row.key) && (press.modifiers() & row.modifiers) == row.modifiers;
    };
    const auto *row = std::find_if(std::begin(rows), std::end(rows), fits);
    return row == std::end(rows) ? std::nullopt : row->command;
}

} // namespace zeph
