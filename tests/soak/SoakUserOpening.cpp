// The soak's user: what opens something to play.
#include "SoakUser.h"
#include "SoakWays.h"

bool SoakUser::openFile()
{
    const QUrl address = QUrl::fromLocalFile(anyOf(m_media.files()));
    return callPlayer(QStringLiteral("OpenUri"), { address.toString() });
}

bool SoakUser::openFileInPanel()
{
    const QString file = anyOf(m_media.files());
    if (!setFullScreen(false))
        return false;
    press("ctrl+o");
    return answerPanel(openPanel, file);
}

bool SoakUser::openStream()
{
    return enterAddress(anyOf(m_media.streams()));
}

bool SoakUser::openShortList()
{
    return enterAddress(anyOf(m_media.shortLists()));
}

bool SoakUser::openLongList()
{
    return enterAddress(m_media.longList());
}

bool SoakUser::openBrokenList()
{
    return enterAddress(anyOf(m_media.brokenLists()));
}

bool SoakUser::openWebVideo()
{
    return enterAddress(anyOf(m_media.webVideos()));
}

bool SoakUser::clearNetwork()
{
    return showSection(networkSection) && m_player.pressButton(clearNetworkButton);
}

bool SoakUser::toggleMovieName()
{
    if (!showSection(networkSection))
        return false;
    const bool shown = m_player.shows(Role::TextField, movieNameField);
    const QList<AccessibleObject> buttons = m_player.findAll(Role::Button);
    const auto toggles = [](const AccessibleObject &button) {
        return button.name().contains(QStringLiteral("name"), Qt::CaseInsensitive);
    };
    const auto button = std::find_if(buttons.cbegin(), buttons.cend(), toggles);
    return button != buttons.cend() && button->press() && awaitThat([this, shown] {
        return m_player.shows(Role::TextField, movieNameField) != shown;
    });
}

bool SoakUser::enterAddress(const QString &address)
{
    return showSection(networkSection)
        && m_player.await(Role::TextField, addressField).setText(address);
}
