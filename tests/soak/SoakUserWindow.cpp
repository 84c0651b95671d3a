// The soak's user: the window.
#include "SoakUser.h"
#include "SoakWays.h"

bool SoakUser::toggleSidebar()
{
    const AccessibleObject button = m_player.find(Role::Button, sidebarButton);
    return button && button.press();
}

bool SoakUser::toggleFullScreen()
{
    return setFullScreen(!m_player.fillsScreen());
}

bool SoakUser::resizeWindow()
{
    if (m_player.fillsScreen())
        return false;
    resize(m_player.window(), { 700 + below(900), 450 + below(500) });
    return true;
}

bool SoakUser::moveAcross()
{
    const QRect area = m_player.window().contents();
    for (int i = 0; i < 5; ++i)
        moveMouse(area.topLeft() + QPoint(below(area.width()), below(area.height())));
    return true;
}

bool SoakUser::clickPicture()
{
    if (m_player.fillsScreen())
        return false;
    moveMouse(m_player.picturePart().center());
    click("1");
    return true;
}
