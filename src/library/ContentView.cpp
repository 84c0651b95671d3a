#include "library/ContentView.h"

#include "platform/PlayerNotifications.h"
#include "platform/WebScheme.h"
#include "sources/ChannelListFile.h"
#include "sources/OKVideoContent.h"
#include "sources/YouTubeContent.h"

#include <QKeyEvent>

#include <utility>

namespace zeph {

ContentView::ContentView(
    PlayerModel &model, UserDefaults &defaults, FilePanels &panels, QObject *parent)
    : QObject(parent), m_model(model), m_panels(panels), m_localM3UStore(defaults, model, panels)
{
    connect(&m_controlBar, &PlayerControlBar::showSidebarChanged, this,
        &ContentView::sidebarShownOrHidden);
    connect(&model, &PlayerModel::playlistChanged, this, &ContentView::takePlaylist);
    connect(&model, &PlayerModel::isPlayingChanged, this, &ContentView::followPlaying);
    connect(this, &ContentView::networkPlaylistChanged, &m_channels,
        [this] { m_channels.setNetworkPlaylist(m_networkPlaylist); });
    connect(this, &ContentView::selectedSidebarSectionChanged, &m_channels,
        [this] { m_channels.setSelectedSection(m_selectedSidebarSection); });
    connect(&m_localM3UStore, &LocalM3UStore::entriesChanged, this,
        &ContentView::chooseFileTextChanged);
    NotificationCenter &notifications = NotificationCenter::defaultCenter();
    notifications.observe(playerSurfaceClicked, this, [this](QWindow *) { surfaceClicked(); });
    notifications.observe(playerMouseMoved, this, [this](QWindow *window) { mouseMoved(window); });
}

ContentView::~ContentView() = default;

void ContentView::appear(QQuickWindow *window)
{
    m_window = window;
    connect(window, &QWindow::windowStateChanged, this,
        [this] { followWindowState(m_window->windowStates()); });
    followWindowState(window->windowStates());
    m_model.installKeyboardShortcuts();
    m_keyboardMonitor.emplace(QEvent::KeyPress, [this](QWindow &, QEvent &event) {
        return handleKeyPress(static_cast<const QKeyEvent &>(event));
    });
}

void ContentView::setSelectedSidebarSection(PlayerSidebarSection section)
{
    if (std::exchange(m_selectedSidebarSection, section) != section)
        Q_EMIT selectedSidebarSectionChanged();
}

void ContentView::sidebarShownOrHidden()
{
    Q_EMIT showSidebarChanged();
    if (showSidebar())
        m_model.player()->prepare();
    if (showSidebar() && m_selectedSidebarSection == PlayerSidebarSection::Network) {
        // Once it has slid in.
        m_addressFocusTask.start(addressFocusDelay, [this] {
            if (showSidebar() && m_selectedSidebarSection == PlayerSidebarSection::Network)
                setStreamAddressFocused(true);
        });
    } else {
        setStreamAddressFocused(false);
    }
    setShowMovieName(false);
}

void ContentView::takePlaylist()
{
    switch (m_selectedSidebarSection) {
    case PlayerSidebarSection::LocalM3U:
        m_localM3UStore.replaceEntries(m_model.playlist());
        break;
    case PlayerSidebarSection::Network:
        m_networkPlaylist = m_model.playlist();
        Q_EMIT networkPlaylistChanged();
        break;
    }
}

QString ContentView::chooseFileText() const
{
    return m_localM3UStore.entries().isEmpty() ? tr("Choose M3U File\u2026")
                                               : tr("Change M3U File\u2026");
}

void ContentView::importLocalPlaylist()
{
    m_autoOpenTask.cancel();
    m_channels.clearFilters();
    m_localM3UStore.importLocalPlaylist(m_movieName);
}

void ContentView::surfaceClicked()
{
    m_controlBar.setShowSidebar(false, sidebarCloseAnimation);
}

bool ContentView::acceptsDrop(const QList<QUrl> &urls) const
{
    const bool accepts = !urls.isEmpty() && urls.constFirst().isLocalFile();
    if (accepts)
        m_model.player()->prepare();
    return accepts;
}

void ContentView::drop(const QList<QUrl> &urls)
{
    if (acceptsDrop(urls))
        openUrl(urls.constFirst());
}

void ContentView::openUrl(const QUrl &url)
{
    m_model.play(url, std::nullopt, false);
}

void ContentView::openFromDesktop(const QUrl &url)
{
    if (YouTubeContent::fromUrl(url) || OKVideoContent::fromUrl(url)) {
        openAddress(url);
    } else if (isChannelListFile(url)) {
        showNetworkSection();
        m_model.openPlaylistFile(url);
    } else if (hasWebScheme(url) && PlayerModel::isIPTVPlaylistURL(url)) {
        showNetworkSection();
        openAddress(url);
    } else {
        openUrl(url);
    }
}

void ContentView::showNetworkSection()
{
    setSelectedSidebarSection(PlayerSidebarSection::Network);
    m_controlBar.setShowSidebar(true, {});
}

} // namespace zeph
