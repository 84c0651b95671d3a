#include "app/MenuCommands.h"

#include "library/ContentView.h"

#include <QCoreApplication>

namespace zeph {

namespace {

QString playTitle(const PlayerModel &model)
{
    return model.isPlaying() ? MenuCommands::tr("Pause") : MenuCommands::tr("Play");
}

QString muteTitle(const PlayerModel &model)
{
    return model.isMuted() ? MenuCommands::tr("Unmute") : MenuCommands::tr("Mute");
}

QString fullScreenTitle(const ContentView &content)
{
    return content.isFullScreen() ? MenuCommands::tr("Exit Full Screen")
                                  : MenuCommands::tr("Enter Full Screen");
}

} // namespace

MenuCommands::MenuCommands(ContentView &content, QObject *parent)
    : QObject(parent), m_model(*content.model())
{
    PlayerModel &model = m_model;
    m_file = {
        command(
            tr("Open Media…"), [&model] { model.openFile(); }, Qt::CTRL | Qt::Key_O),
        divider(),
        command(
            tr("Quit"), [] { QCoreApplication::quit(); }, Qt::CTRL | Qt::Key_Q),
    };

    // Playing, stopping and skipping have keys of their own, which are not menu shortcuts: they
    // must not take effect while a text is edited.
    auto *play = command(playTitle(model), [&model] { model.togglePlayback(); });
    auto *mute = command(
        muteTitle(model), [&model] { model.toggleMute(); }, Qt::CTRL | Qt::Key_M);
    m_playback = {
        play,
        command(tr("Stop"), [&model] { model.stop(); }),
        divider(),
        skipCommand(tr("Back 5 Seconds"), -5),
        skipCommand(tr("Forward 5 Seconds"), 5),
        skipCommand(tr("Back 20 Seconds"), -20),
        skipCommand(tr("Forward 20 Seconds"), 20),
        skipCommand(tr("Back 60 Seconds"), -60),
        skipCommand(tr("Forward 60 Seconds"), 60),
        mute,
    };
    connect(&model, &PlayerModel::isPlayingChanged, play,
        [&model, play] { play->setTitle(playTitle(model)); });
    connect(&model, &PlayerModel::isMutedChanged, mute,
        [&model, mute] { mute->setTitle(muteTitle(model)); });

    auto *fullScreen = command(
        fullScreenTitle(content), [&content] { content.toggleFullScreen(); }, Qt::Key_F11);
    m_view = { fullScreen };
    connect(&content, &ContentView::isFullScreenChanged, fullScreen,
        [&content, fullScreen] { fullScreen->setTitle(fullScreenTitle(content)); });
}

QList<MenuCommand *> MenuCommands::withKeys() const
{
    QList<MenuCommand *> commands = m_file + m_playback + m_view;
    commands.removeIf([](const MenuCommand *command) { return command->shortcut().isEmpty(); });
    return commands;
}

MenuCommand *MenuCommands::command(
    const QString &title, std::function<void()> action, const QKeySequence &keyEquivalent)
{
    return new MenuCommand(title, keyEquivalent, std::move(action), this);
}

MenuCommand *MenuCommands::divider()
{
    return new MenuCommand(this);
}

MenuCommand *MenuCommands::skipCommand(const QString &title, double seconds)
{
    return command(title, [this, seconds] { m_model.skip(seconds); });
}

} // namespace zeph
