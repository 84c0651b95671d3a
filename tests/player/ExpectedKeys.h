// What each key is to do, written for obviousness.
#pragma once

#include <QList>
#include <QString>
#include <Qt>
#include <QTest>

struct KeyOnKeyboard {
    const char *name;
    int scanCode; ///< X11's.
    Qt::Key key; ///< With an American layout.
};

inline const QList<KeyOnKeyboard> keysOnKeyboard {
    { "left", 113, Qt::Key_Left },
    { "right", 114, Qt::Key_Right },
    { "up", 111, Qt::Key_Up },
    { "down", 116, Qt::Key_Down },
    { "space", 65, Qt::Key_Space },
    { "k", 45, Qt::Key_K },
    // Some that do nothing.
    { "j", 44, Qt::Key_J },
    { "page up", 112, Qt::Key_PageUp },
    { "return", 36, Qt::Key_Return },
};

struct ModifierKey {
    const char *name;
    int scanCode; ///< X11's.
    Qt::KeyboardModifier modifier;
};

inline const QList<ModifierKey> modifierKeys {
    { "shift", 50, Qt::ShiftModifier },
    { "control", 37, Qt::ControlModifier },
    { "alt", 64, Qt::AltModifier },
    { "super", 133, Qt::MetaModifier },
};

/// All 16 combinations.
inline QList<Qt::KeyboardModifiers> modifierCombinations()
{
    QList<Qt::KeyboardModifiers> combinations { Qt::NoModifier };
    for (const ModifierKey &key : modifierKeys) {
        for (const Qt::KeyboardModifiers combination : QList(combinations))
            combinations << (combination | key.modifier);
    }
    return combinations;
}

inline QString nameOf(const KeyOnKeyboard &key, Qt::KeyboardModifiers modifiers)
{
    QString name;
    for (const ModifierKey &modifier : modifierKeys) {
        if (modifiers.testFlag(modifier.modifier))
            name += QLatin1String(modifier.name) + QLatin1Char('+');
    }
    return name + QLatin1String(key.name);
}

/// Test data: each of `keysOnKeyboard`, by its index, with each combination.
inline void everyKeyAndCombination()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    for (int key = 0; key < keysOnKeyboard.size(); ++key) {
        for (const Qt::KeyboardModifiers modifiers : modifierCombinations())
            QTest::newRow(qPrintable(nameOf(keysOnKeyboard[key], modifiers)))
                << key << int(modifiers);
    }
}

/// Seconds of a skip, per cent of the volume, 0 for an action without an amount.
struct ExpectedAction {
    enum Kind { None, Skip, Volume, Toggle, Stop } kind = None;
    int amount = 0;
};

inline ExpectedAction expectedAction(const KeyOnKeyboard &pressed, Qt::KeyboardModifiers modifiers)
{
    const bool shift = modifiers.testFlag(Qt::ShiftModifier);
    const bool command = modifiers.testFlag(Qt::ControlModifier);
    const bool option = modifiers.testFlag(Qt::AltModifier);
    const bool control = modifiers.testFlag(Qt::MetaModifier);
    const QLatin1String name(pressed.name);

    if (name == QLatin1String("left") || name == QLatin1String("right")) {
        const int sign = name == QLatin1String("left") ? -1 : 1;
        if (command && option)
            return { ExpectedAction::Skip, sign * 300 };
        if (command)
            return { ExpectedAction::Skip, sign * 60 };
        if (option)
            return { ExpectedAction::Skip, sign * 20 };
        if (shift || control)
            return {};
        return { ExpectedAction::Skip, sign * 5 };
    }
    if (name == QLatin1String("up") || name == QLatin1String("down")) {
        const int sign = name == QLatin1String("down") ? -1 : 1;
        if (shift)
            return { ExpectedAction::Volume, sign * 1 };
        if (command)
            return { ExpectedAction::Volume, sign * 20 };
        if (option)
            return { ExpectedAction::Volume, sign * 10 };
        if (control)
            return {};
        return { ExpectedAction::Volume, sign * 5 };
    }
    if (name == QLatin1String("space"))
        return { ExpectedAction::Toggle };
    if (name == QLatin1String("k") && command)
        return { ExpectedAction::Stop };
    return {};
}
