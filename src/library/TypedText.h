// Keys that type.
#pragma once

#include <QKeyEvent>

namespace zeph {

/// Whether a key types something that is seen, a blank included, and is no command.
inline bool isTypedText(const QKeyEvent &press)
{
    constexpr Qt::KeyboardModifiers commands =
        Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const QString text = press.text();
    return !(press.modifiers() & commands) && !text.isEmpty() && text.front().isPrint();
}

} // namespace zeph
