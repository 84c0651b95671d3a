// The table of keys, for every key with every combination of modifiers.
#include "ExpectedKeys.h"
#include "player/KeyCommands.h"

#include <QTest>

using namespace zeph;

namespace {

std::optional<KeyCommand> command(const ExpectedAction &expected)
{
    switch (expected.kind) {
    case ExpectedAction::Skip:
        return KeyCommand { KeyAction::Skip, double(expected.amount), false };
    case ExpectedAction::Volume:
        return KeyCommand { KeyAction::AdjustVolume, expected.amount / 100.0, true };
    case ExpectedAction::Toggle:
        return KeyCommand { KeyAction::TogglePlayback, 0, false };
    case ExpectedAction::Stop:
        return KeyCommand { KeyAction::Stop, 0, false };
    default:
        return std::nullopt;
    }
}

std::optional<KeyCommand> press(Qt::Key key, quint32 scanCode, Qt::KeyboardModifiers modifiers)
{
    return keyCommand(QKeyEvent(QEvent::KeyPress, key, modifiers, scanCode, 0, 0));
}

} // namespace

class KeyCommandsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void table_data() { everyKeyAndCombination(); }

    void table()
    {
        QFETCH(const int, key);
        QFETCH(const int, modifiers);
        const KeyOnKeyboard &onKeyboard = keysOnKeyboard[key];
        const auto held = Qt::KeyboardModifiers(modifiers);
        const auto expected = command(expectedAction(onKeyboard, held));
        const auto scanCode = quint32(onKeyboard.scanCode);
        QCOMPARE(press(onKeyboard.key, scanCode, held), expected);
        // Another layout has something else on the key.
        QCOMPARE(press(Qt::Key_Q, scanCode, held), expected);
        QCOMPARE(press(Qt::Key_unknown, scanCode, held), expected);
        // Events that are not from a keyboard have no scan code.
        QCOMPARE(press(onKeyboard.key, 0, held), expected);
        // What looks like the key but is at another place is another key.
        QCOMPARE(press(onKeyboard.key, 200, held), std::nullopt);
        // A number pad and groups of a layout change nothing.
        QCOMPARE(press(onKeyboard.key, scanCode, held | Qt::KeypadModifier), expected);
        QCOMPARE(press(onKeyboard.key, scanCode, held | Qt::GroupSwitchModifier), expected);
    }
};

QTEST_GUILESS_MAIN(KeyCommandsTest)
#include "tst_key_commands.moc"
