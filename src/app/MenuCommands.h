// The menu bar.
#pragma once

#include "app/MenuCommand.h"

#include <QList>
#include <QObject>
#include <QQmlEngine>

namespace zeph {

class ContentView;
class PlayerModel;

/// The commands of the menus, in order, with titles that follow the model. Main thread only.
class MenuCommands : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application owns the menu commands.")

    Q_PROPERTY(QList<zeph::MenuCommand *> file READ file CONSTANT)
    Q_PROPERTY(QList<zeph::MenuCommand *> playback READ playback CONSTANT)
    Q_PROPERTY(QList<zeph::MenuCommand *> view READ view CONSTANT)
    /// Those of all menus that have a key of their own.
    Q_PROPERTY(QList<zeph::MenuCommand *> withKeys READ withKeys CONSTANT)

public:
    /// `content` outlives the commands.
    explicit MenuCommands(ContentView &content, QObject *parent = nullptr);

    const QList<MenuCommand *> &file() const { return m_file; }
    const QList<MenuCommand *> &playback() const { return m_playback; }
    const QList<MenuCommand *> &view() const { return m_view; }
    QList<MenuCommand *> withKeys() const;

private:
    MenuCommand *command(
        const QString &title, std::function<void()> action, const QKeySequence &keyEquivalent = {});
    MenuCommand *divider();
    MenuCommand *skipCommand(const QString &title, double seconds);

    PlayerModel &m_model;
    QList<MenuCommand *> m_file;
    QList<MenuCommand *> m_playback;
    QList<MenuCommand *> m_view;
};

} // namespace zeph
