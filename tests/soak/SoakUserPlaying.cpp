// The soak's user: what is done to what plays.
#include "SoakUser.h"
#include "SoakWays.h"

bool SoakUser::pressControl()
{
    const QStringList names { QStringLiteral("Skip back 10 seconds"), playButton, pauseButton,
        playButton, pauseButton, QStringLiteral("Stop"), QStringLiteral("Skip forward 10 seconds"),
        QStringLiteral("Mute or unmute") };
    const AccessibleObject button = m_player.find(Role::Button, anyOf(names));
    return button && button.press();
}

bool SoakUser::pressKey()
{
    const QList<const char *> keys { "space", "space", "space", "Left", "Right", "Up", "Down",
        "ctrl+Left", "ctrl+Right", "alt+Left", "alt+Right", "ctrl+Up", "alt+Down", "ctrl+k",
        "ctrl+m", "Tab", "shift+Tab", "Escape" };
    press(anyOf(keys));
    return true;
}

bool SoakUser::chooseFromMenu()
{
    if (!m_player.hasMenuBar())
        return false;
    press("alt+p");
    return chooseAnyMenuItem();
}

bool SoakUser::movePosition()
{
    return moveSlider(positionSlider);
}

bool SoakUser::moveVolume()
{
    return moveSlider(volumeSlider);
}

bool SoakUser::commandFromDesktop()
{
    const QStringList methods { QStringLiteral("PlayPause"), QStringLiteral("Play"),
        QStringLiteral("Pause"), QStringLiteral("Seek") };
    const QString method = anyOf(methods);
    QVariantList arguments;
    if (method == methods.constLast())
        arguments << qlonglong(below(20) - 10) * 1'000'000;
    return callPlayer(method, arguments);
}

bool SoakUser::chooseMode()
{
    const QStringList modes { normalMode, normalMode, QStringLiteral("Portrait Fill"),
        QStringLiteral("Portrait Rotate 90°"), QStringLiteral("Manual Reframe"), smartReframe };
    return chooseMode(anyOf(modes));
}

bool SoakUser::chooseMode(const QString &mode)
{
    if (!closeMenus() || !setFullScreen(false) || !m_player.pressButton(modeButton)
        || !m_player.press(Role::MenuItem, mode))
        return false;
    const auto isClosed = [&] { return !m_player.shows(Role::MenuItem, mode); };
    return awaitThat(isClosed);
}

bool SoakUser::smartMode()
{
    const QStringList clips { clip("face.mkv"), clip("faces.mkv") };
    const QUrl address = QUrl::fromLocalFile(anyOf(clips));
    return callPlayer(QStringLiteral("OpenUri"), { address.toString() })
        && chooseMode(smartReframe);
}
