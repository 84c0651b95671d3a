// The keys and the mouse, wherever in the application they are used.
#include "player/PlayerModel.h"

#include "platform/KeyboardFocus.h"
#include "platform/PlayerNotifications.h"
#include "player/KeyCommands.h"

#include <QMouseEvent>
#include <QWindow>

namespace zeph {

void PlayerModel::installKeyboardShortcuts()
{
    if (m_keyboardMonitor)
        return;
    m_keyRepeat.emplace();
    m_keyboardMonitor.emplace(QEvent::KeyPress, [this](QWindow &, QEvent &event) {
        return handleKeyPress(static_cast<const QKeyEvent &>(event));
    });
    m_mouseMonitor.emplace(QEvent::MouseMove, [](QWindow &window, QEvent &event) {
        const bool drags = static_cast<const QMouseEvent &>(event).buttons() != Qt::NoButton;
        if (!drags)
            NotificationCenter::defaultCenter().post(playerMouseMoved, &window);
        return false;
    });
}

bool PlayerModel::handleKeyPress(const QKeyEvent &press)
{
    const auto command = keyCommand(press);
    if (!command || focusKeepsKey(press))
        return false;
    if (m_keyRepeat->isRepeat(press) && !command->repeats)
        return true;
    switch (command->action) {
    case KeyAction::Skip:
        skip(command->amount);
        break;
    case KeyAction::AdjustVolume:
        adjustVolume(command->amount);
        break;
    case KeyAction::TogglePlayback:
        togglePlayback();
        break;
    case KeyAction::Stop:
        stop();
        break;
    }
    return true;
}

} // namespace zeph
