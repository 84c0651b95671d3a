#include "app/MenuCommand.h"

#include <utility>

namespace zeph {

MenuCommand::MenuCommand(QObject *parent) : QObject(parent) { }

MenuCommand::MenuCommand(
    QString title, const QKeySequence &keyEquivalent, std::function<void()> action, QObject *parent)
    : QObject(parent)
    , m_title(std::move(title))
    , m_keyEquivalent(keyEquivalent)
    , m_action(std::move(action))
{
}

void MenuCommand::setTitle(const QString &title)
{
    if (std::exchange(m_title, title) != title)
        Q_EMIT titleChanged();
}

void MenuCommand::trigger()
{
    if (m_action)
        m_action();
}

} // namespace zeph
