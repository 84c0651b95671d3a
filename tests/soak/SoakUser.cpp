#include "SoakUser.h"
#include "SoakWays.h"

#include <functional>
#include <numeric>
#include <utility>

SoakUser::SoakUser(
    const SidebarPlayer &player, AccessibilityBus &bus, const SoakMedia &media, quint32 seed)
    : m_player(player)
    , m_desktop(bus.sessionBus().connectAs(QStringLiteral("desktop")))
    , m_media(media)
    , m_random(seed)
{
}

const QList<SoakUser::Action> &SoakUser::actions()
{
    static const QList<Action> all {
        { "open a file", 10, &SoakUser::openFile },
        { "open a file in the panel", 2, &SoakUser::openFileInPanel },
        { "open a stream", 6, &SoakUser::openStream },
        { "open a short list", 6, &SoakUser::openShortList },
        { "open a long list", 2, &SoakUser::openLongList },
        { "open a broken list", 2, &SoakUser::openBrokenList },
        { "open a web video", 5, &SoakUser::openWebVideo },
        { "clear the network", 2, &SoakUser::clearNetwork },
        { "switch the channel", 16, &SoakUser::switchChannel },
        { "scroll the channels", 6, &SoakUser::scrollChannels },
        { "search", 6, &SoakUser::search },
        { "filter", 4, &SoakUser::filter },
        { "change the section", 5, &SoakUser::changeSection },
        { "save a channel", 3, &SoakUser::saveChannel },
        { "add a link", 2, &SoakUser::addLink },
        { "edit a link", 2, &SoakUser::editLink },
        { "delete a link", 2, &SoakUser::deleteLink },
        { "import links", 1, &SoakUser::importLinks },
        { "export links", 1, &SoakUser::exportLinks },
        { "toggle the sidebar", 4, &SoakUser::toggleSidebar },
        { "toggle the movie's name", 1, &SoakUser::toggleMovieName },
        { "press a control", 12, &SoakUser::pressControl },
        { "press a key", 14, &SoakUser::pressKey },
        { "choose from a menu", 3, &SoakUser::chooseFromMenu },
        { "move the position", 10, &SoakUser::movePosition },
        { "move the volume", 4, &SoakUser::moveVolume },
        { "command from the desktop", 4, &SoakUser::commandFromDesktop },
        { "choose a display mode", 8, &SoakUser::chooseMode },
        { "follow faces", 2, &SoakUser::smartMode },
        { "toggle full screen", 5, &SoakUser::toggleFullScreen },
        { "resize the window", 4, &SoakUser::resizeWindow },
        { "move across the window", 4, &SoakUser::moveAcross },
        { "click the picture", 3, &SoakUser::clickPicture },
    };
    return all;
}

QString SoakUser::act()
{
    static const int sum = std::accumulate(actions().cbegin(), actions().cend(), 0,
        [](int weights, const Action &action) { return weights + action.weight; });
    constexpr int tries = 10;
    for (int i = 0; i < tries; ++i) {
        int place = below(sum);
        const auto chosen = std::find_if(actions().cbegin(), actions().cend(),
            [&place](const Action &action) { return (place -= action.weight) < 0; });
        if ((this->*chosen->perform)()) {
            ++m_counts[QLatin1StringView(chosen->name)];
            return QLatin1StringView(chosen->name);
        }
    }
    return {};
}

QString SoakUser::rest()
{
    const std::pair<const char *, std::function<bool()>> steps[] {
        { "close the panels", [this] { return closePanels(); } },
        { "close the menus", [this] { return closeMenus(); } },
        { "cancel what asks", [this] { return cancelWhatAsks(); } },
        { "leave full screen", [this] { return setFullScreen(false); } },
        { "choose the normal mode", [this] { return chooseMode(normalMode); } },
        { "delete all links", [this] { return deleteAllLinks(); } },
        { "show the network section", [this] { return showSection(networkSection); } },
        { "clear the network", [this] { return m_player.pressButton(clearNetworkButton); } },
        { "hide the movie's name",
            [this] {
                return !m_player.shows(Role::TextField, movieNameField) || toggleMovieName();
            } },
        { "close the sidebar", [this] { return closeSidebar(); } },
        { "shrink the window", [this] { return shrinkWindow(); } },
        { "see an empty window", [this] { return bool(m_player.await(Role::Button, openMedia)); } },
    };
    for (const auto &[name, perform] : steps) {
        if (!perform())
            return QLatin1StringView(name);
    }
    return {};
}

bool SoakUser::closeSidebar()
{
    return m_player.pressButton(sidebarButton)
        && awaitThat([this] { return !m_player.shows(Role::Panel, sidebar); });
}

bool SoakUser::shrinkWindow()
{
    moveMouse({ 0, 0 });
    resize(m_player.window(), restSize);
    return awaitThat([this] { return m_player.window().contents().size() == restSize; });
}

bool SoakUser::chooseAnyMenuItem()
{
    QList<AccessibleObject> items;
    const bool isOpen = soon([&] { return !(items = m_player.findAll(Role::MenuItem)).isEmpty(); });
    if (isOpen)
        anyOf(items).press();
    const auto isClosed = [this] { return m_player.findAll(Role::MenuItem).isEmpty(); };
    if (!isOpen || !soon(isClosed))
        press("Escape");
    return isOpen && soon(isClosed);
}

bool SoakUser::moveSlider(const QString &name)
{
    const AccessibleObject slider = m_player.find(Role::Slider, name);
    return slider && slider.setValue(slider.largestValue() * m_random.generateDouble());
}

bool SoakUser::answerPanel(const QString &title, const QString &path)
{
    const auto panel = [&title] { return panelCalled(title); };
    if (!awaitThat([&] { return !panel().isNull(); }))
        return false;
    panel().press(QStringLiteral("ctrl+a"));
    type(path);
    // The first one may go to the list that completes the path.
    const auto isAnswered = [&] {
        const XWindow open = panel();
        if (!open.isNull())
            open.press(QStringLiteral("Return"));
        return open.isNull();
    };
    return awaitThat(isAnswered);
}

bool SoakUser::closePanels()
{
    // The keys open what the focus happens to be on.
    const QStringList titles { openPanel, importPanel, logoPanel, exportPanel };
    return std::all_of(titles.cbegin(), titles.cend(), [](const QString &title) {
        return awaitThat([&title] {
            const XWindow open = panelCalled(title);
            if (!open.isNull())
                open.press(QStringLiteral("Escape"));
            return open.isNull();
        });
    });
}

bool SoakUser::closeMenus()
{
    return awaitThat([this] {
        const bool isNoneOpen = m_player.findAll(Role::MenuItem).isEmpty();
        if (!isNoneOpen)
            press("Escape");
        return isNoneOpen;
    });
}

bool SoakUser::cancelWhatAsks()
{
    const QString cancel = QStringLiteral("Cancel");
    return !m_player.shows(Role::Button, cancel) || (m_player.pressButton(cancel) && awaitThat([&] {
        return !m_player.shows(Role::Button, cancel);
    }));
}

bool SoakUser::setFullScreen(bool fullScreen)
{
    if (m_player.fillsScreen() == fullScreen)
        return true;
    press("F11");
    return awaitThat([&] { return m_player.fillsScreen() == fullScreen; });
}

bool SoakUser::showSection(const QString &name)
{
    if (!setFullScreen(false))
        return false;
    const auto isShown = [this] { return m_player.shows(Role::Panel, sidebar); };
    return (isShown() || (m_player.pressButton(sidebarButton) && awaitThat(isShown)))
        && m_player.showSection(name);
}

bool SoakUser::callPlayer(const QString &method, const QVariantList &arguments) const
{
    const QDBusMessage reply =
        PrivateBus::call(m_desktop, QStringLiteral("org.mpris.MediaPlayer2.zeph_player"),
            QStringLiteral("/org/mpris/MediaPlayer2"),
            QStringLiteral("org.mpris.MediaPlayer2.Player"), method, arguments);
    return reply.type() == QDBusMessage::ReplyMessage;
}
