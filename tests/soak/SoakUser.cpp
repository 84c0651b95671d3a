#include "SoakUser.h"

#include <numeric>

namespace {

const QString openMedia = QStringLiteral("Open Media");
const QString openPanel = QStringLiteral("Choose Media to Play");
const QString importPanel = QStringLiteral("Import M3U Playlist");
const QString exportPanel = QStringLiteral("Export Local M3U Playlist");
const QString clearNetworkButton = QStringLiteral("Clear playlist and stop network playback");
const QString movieNameField = QStringLiteral("Movie or Playlist Name (optional)");
const QString noLinks =
    QStringLiteral("No local M3U8 links yet. Choose an M3U file or click + to add a link.");
const QString enterFullScreen = QStringLiteral("Enter full screen");
const QString normalMode = QStringLiteral("Normal");
const QString smartReframe = QStringLiteral("Smart Reframe");
const QStringList sections { networkSection, networkSection, localSection };
const QSize restSize(1000, 700);

/// Whether it comes to be. Not as long as what has to come to be.
bool soon(const std::function<bool()> &condition)
{
    return QTest::qWaitFor(condition, 5000);
}

bool awaitThat(const std::function<bool()> &condition)
{
    return QTest::qWaitFor(condition, patience);
}

void resize(const XWindow &window, const QSize &size)
{
    xdotool({ QStringLiteral("windowsize"), window.id(), QString::number(size.width()),
        QString::number(size.height()) });
}

/// The newest one of this title; null when there is none.
XWindow panelCalled(const QString &title)
{
    const QString found = xdotool({ QStringLiteral("search"), QStringLiteral("--onlyvisible"),
        QStringLiteral("--name"), u'^' + title });
    return XWindow(found.section(u'\n', -1));
}

void click(const char *button)
{
    xdotool({ QStringLiteral("click"), QLatin1StringView(button) });
}

} // namespace

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

bool SoakUser::rest()
{
    if (!closePanels() || !setFullScreen(false) || !chooseMode(normalMode) || !deleteAllLinks()
        || !showSection(networkSection) || !m_player.pressButton(clearNetworkButton))
        return false;
    if (m_player.shows(Role::TextField, movieNameField) && !toggleMovieName())
        return false;
    if (!m_player.pressButton(sidebarButton)
        || !awaitThat([this] { return !m_player.shows(Role::Panel, sidebar); }))
        return false;
    moveMouse({ 0, 0 });
    resize(m_player.window(), restSize);
    return awaitThat([this] { return m_player.window().contents().size() == restSize; })
        && m_player.await(Role::Button, openMedia);
}

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

bool SoakUser::switchChannel()
{
    const QList<AccessibleObject> rows = channels(anyOf(sections));
    return !rows.isEmpty() && anyOf(rows).press();
}

bool SoakUser::scrollChannels()
{
    const QList<AccessibleObject> rows = channels(anyOf(sections));
    if (rows.isEmpty())
        return false;
    moveMouse(rows.constFirst().rectangle().center());
    const char *down = below(3) != 0 ? "5" : "4";
    for (int i = below(10); i >= 0; --i)
        click(down);
    return true;
}

bool SoakUser::search()
{
    const QStringList texts { QStringLiteral("channel 1"), QStringLiteral("99"),
        QStringLiteral("nothing"), QStringLiteral("news"), QStringLiteral("7"), QString() };
    const QString text = anyOf(texts);
    for (const QString &name :
        { QStringLiteral("Search channels"), QStringLiteral("Search local M3U8 links") }) {
        if (const AccessibleObject field = m_player.find(Role::TextField, name))
            return field.setText(text);
    }
    return false;
}

bool SoakUser::filter()
{
    const QStringList descriptions { QStringLiteral("Show the channels of one country"),
        QStringLiteral("Show the channels of one category") };
    const QString description = anyOf(descriptions);
    const QList<AccessibleObject> buttons = m_player.findAll(Role::Button);
    const auto isMenu = [&](const AccessibleObject &button) {
        return button.description() == description;
    };
    const auto menu = std::find_if(buttons.cbegin(), buttons.cend(), isMenu);
    if (menu == buttons.cend() || !menu->press())
        return false;
    QList<AccessibleObject> choices;
    if (!soon([&] { return !(choices = m_player.findAll(Role::MenuItem)).isEmpty(); }))
        return false;
    anyOf(choices).press();
    const auto isClosed = [this] { return m_player.findAll(Role::MenuItem).isEmpty(); };
    if (!soon(isClosed))
        press("Escape");
    return soon(isClosed);
}

bool SoakUser::changeSection()
{
    return showSection(anyOf(sections));
}

bool SoakUser::saveChannel()
{
    return pressInAnyRow(networkSection, QStringLiteral("Save to Local M3U"));
}

bool SoakUser::addLink()
{
    const QString add = QStringLiteral("Add M3U8 Link");
    return showSection(localSection) && m_player.pressButton(add) && fillSheet();
}

bool SoakUser::editLink()
{
    return pressInAnyRow(localSection, QStringLiteral("Edit")) && fillSheet();
}

bool SoakUser::deleteLink()
{
    if (!pressInAnyRow(localSection, QStringLiteral("Delete")))
        return false;
    const QString heading = QStringLiteral("Delete Channel?");
    const QStringList answers { QStringLiteral("Cancel"), QStringLiteral("Delete") };
    if (!m_player.awaitHeading(heading) || !m_player.awaitFocus(answers[0]))
        return false;
    if (below(4) != 0)
        press("Tab");
    press("Return");
    return awaitThat([&] { return !m_player.shows(Role::Heading, heading); });
}

bool SoakUser::importLinks()
{
    if (!showSection(localSection))
        return false;
    const QList<AccessibleObject> buttons = m_player.findAll(Role::Button);
    const auto isImport = [](const AccessibleObject &button) {
        return button.name().endsWith(QStringLiteral("M3U File\u2026"));
    };
    const auto button = std::find_if(buttons.cbegin(), buttons.cend(), isImport);
    return button != buttons.cend() && button->press()
        && answerPanel(importPanel, m_media.linksFile());
}

bool SoakUser::exportLinks()
{
    QFile::remove(m_media.exportFile());
    return showSection(localSection) && !m_player.shows(Role::Label, noLinks)
        && m_player.pressButton(QStringLiteral("Export"))
        && answerPanel(exportPanel, m_media.exportFile());
}

bool SoakUser::toggleSidebar()
{
    const AccessibleObject button = m_player.find(Role::Button, sidebarButton);
    return button && button.press();
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
    QList<AccessibleObject> items;
    if (!soon([&] { return !(items = m_player.findAll(Role::MenuItem)).isEmpty(); })) {
        press("Escape");
        return false;
    }
    anyOf(items).press();
    const auto isClosed = [this] { return m_player.findAll(Role::MenuItem).isEmpty(); };
    if (!soon(isClosed))
        press("Escape");
    return soon(isClosed);
}

bool SoakUser::movePosition()
{
    const AccessibleObject slider = m_player.find(Role::Slider, positionSlider);
    return slider && slider.setValue(slider.largestValue() * m_random.generateDouble());
}

bool SoakUser::moveVolume()
{
    const AccessibleObject slider = m_player.find(Role::Slider, volumeSlider);
    return slider && slider.setValue(slider.largestValue() * m_random.generateDouble());
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

bool SoakUser::smartMode()
{
    const QStringList clips { clip("face.mkv"), clip("faces.mkv") };
    const QUrl address = QUrl::fromLocalFile(anyOf(clips));
    return callPlayer(QStringLiteral("OpenUri"), { address.toString() })
        && chooseMode(smartReframe);
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

bool SoakUser::enterAddress(const QString &address)
{
    return showSection(networkSection)
        && m_player.await(Role::TextField, addressField).setText(address);
}

bool SoakUser::chooseMode(const QString &mode)
{
    if (!setFullScreen(false) || !m_player.pressButton(modeButton)
        || !m_player.press(Role::MenuItem, mode))
        return false;
    const auto isClosed = [&] { return !m_player.shows(Role::MenuItem, mode); };
    return awaitThat(isClosed);
}

bool SoakUser::fillSheet()
{
    const QString name = QStringLiteral("Channel or video name");
    const QStringList texts { name, QStringLiteral("Mine %1").arg(below(1000)),
        QStringLiteral("M3U8 URL"), anyOf(m_media.streams()),
        QStringLiteral("Country code (for example: TR, US)"), QStringLiteral("at"),
        QStringLiteral("Category (optional)"), QStringLiteral("Music") };
    for (qsizetype i = 0; i < texts.size(); i += 2) {
        if (!m_player.await(Role::TextField, texts[i]).setText(texts[i + 1]))
            return false;
    }
    m_player.pressButton(below(4) != 0 ? QStringLiteral("Save") : QStringLiteral("Cancel"));
    const auto isClosed = [&] { return !m_player.shows(Role::TextField, name); };
    if (!soon(isClosed))
        press("Escape");
    return awaitThat(isClosed);
}

bool SoakUser::deleteAllLinks()
{
    if (!showSection(localSection))
        return false;
    if (m_player.shows(Role::Label, noLinks))
        return true;
    return m_player.pressButton(QStringLiteral("Clear"))
        && m_player.pressButton(QStringLiteral("Delete Permanently"))
        && m_player.await(Role::Label, noLinks);
}

// Unlike other tests, without a look into the panel: Qt keeps something for each file in it that it
// is asked about, for ever.
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
    const QStringList titles { openPanel, importPanel, exportPanel };
    return std::all_of(titles.cbegin(), titles.cend(), [](const QString &title) {
        return awaitThat([&title] {
            const XWindow open = panelCalled(title);
            if (!open.isNull())
                open.press(QStringLiteral("Escape"));
            return open.isNull();
        });
    });
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

QList<AccessibleObject> SoakUser::channels(const QString &section)
{
    return showSection(section) ? m_player.findAll(Role::ListItem) : QList<AccessibleObject>();
}

bool SoakUser::pressInAnyRow(const QString &section, const QString &button)
{
    const QList<AccessibleObject> rows = channels(section);
    if (rows.isEmpty())
        return false;
    const QList<AccessibleObject> parts = anyOf(rows).children();
    return std::any_of(parts.cbegin(), parts.cend(), [&](const AccessibleObject &part) {
        return part.role() == Role::Button && part.name() == button && part.press();
    });
}

bool SoakUser::callPlayer(const QString &method, const QVariantList &arguments) const
{
    const QDBusMessage reply =
        PrivateBus::call(m_desktop, QStringLiteral("org.mpris.MediaPlayer2.zeph_player"),
            QStringLiteral("/org/mpris/MediaPlayer2"),
            QStringLiteral("org.mpris.MediaPlayer2.Player"), method, arguments);
    return reply.type() == QDBusMessage::ReplyMessage;
}
