// The main window's state.
#pragma once

#include "library/ChannelBrowser.h"
#include "library/LocalM3UItemEditView.h"
#include "library/LocalM3UStore.h"
#include "library/PlayerSidebarSection.h"
#include "platform/CursorHider.h"
#include "platform/ImageLoader.h"
#include "player/PlayerModel.h"
#include "surface/PlayerControlBar.h"

#include <QPointer>
#include <QQuickWindow>

namespace zeph {

/// What the main window shows besides what plays: the sidebar, sheets and alerts, and in full
/// screen the controls and the mouse cursor, which go when they are not used. ContentViewLayout.qml
/// draws it. Main thread only.
class ContentView : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application owns the main window's state.")

    Q_PROPERTY(zeph::PlayerModel *model READ model CONSTANT)
    Q_PROPERTY(zeph::LocalM3UStore *localM3UStore READ localM3UStore CONSTANT)
    /// The lists of both sections, and what they are filtered by.
    Q_PROPERTY(zeph::ChannelBrowser *channels READ channels CONSTANT)
    /// Loads the pictures of the channels.
    Q_PROPERTY(zeph::ImageLoader *logos READ logos CONSTANT)
    /// Holds the display mode, and whether the sidebar is shown.
    Q_PROPERTY(zeph::PlayerControlBar *controlBar READ controlBar CONSTANT)
    Q_PROPERTY(bool showSidebar READ showSidebar NOTIFY showSidebarChanged)
    /// Milliseconds that the sidebar takes to slide to where it is to be by now.
    Q_PROPERTY(int sidebarAnimation READ sidebarAnimation NOTIFY showSidebarChanged)
    Q_PROPERTY(zeph::playerSidebar::Section selectedSidebarSection READ selectedSidebarSection WRITE
            setSelectedSidebarSection NOTIFY selectedSidebarSectionChanged)
    /// Text of the stream address field.
    Q_PROPERTY(QString address READ address WRITE setAddress NOTIFY addressChanged)
    /// The keys go to the address field.
    Q_PROPERTY(bool isStreamAddressFocused READ isStreamAddressFocused WRITE setStreamAddressFocused
            NOTIFY isStreamAddressFocusedChanged)
    /// The optional name field is shown.
    Q_PROPERTY(
        bool showMovieName READ showMovieName WRITE setShowMovieName NOTIFY showMovieNameChanged)
    /// What the address is to be called; blank for the usual name.
    Q_PROPERTY(QString movieName READ movieName WRITE setMovieName NOTIFY movieNameChanged)
    /// The mouse is over the button that shows the name field.
    Q_PROPERTY(bool movieNameToggleHovered READ movieNameToggleHovered WRITE
            setMovieNameToggleHovered NOTIFY movieNameToggleHoveredChanged)
    Q_PROPERTY(QString movieNameToggleHelp READ movieNameToggleHelp NOTIFY showMovieNameChanged)

    /// What the button says that chooses a file for the saved links.
    Q_PROPERTY(QString chooseFileText READ chooseFileText NOTIFY chooseFileTextChanged)

    Q_PROPERTY(bool isFullScreen READ isFullScreen NOTIFY isFullScreenChanged)
    /// The control bar is shown in full screen.
    Q_PROPERTY(bool fullScreenControlsVisible READ fullScreenControlsVisible NOTIFY
            fullScreenControlsVisibleChanged)

    /// The form of the sheet that is open; empty when none is.
    Q_PROPERTY(QList<zeph::LocalM3UItemEditView *> editForms READ editForms NOTIFY editFormsChanged)
    /// The user is asked whether to delete all saved links.
    Q_PROPERTY(bool confirmingLocalClear READ confirmingLocalClear WRITE setConfirmingLocalClear
            NOTIFY confirmingLocalClearChanged)
    /// The user is asked whether to delete one.
    Q_PROPERTY(
        bool confirmingLocalDelete READ confirmingLocalDelete NOTIFY deletingLocalEntryChanged)
    Q_PROPERTY(QString localDeleteMessage READ localDeleteMessage NOTIFY deletingLocalEntryChanged)

public:
    static constexpr std::chrono::milliseconds sidebarCloseAnimation { 160 };
    static constexpr std::chrono::milliseconds addressFocusDelay { 180 };
    static constexpr std::chrono::milliseconds automaticOpenDelay { 450 };
    static constexpr std::chrono::milliseconds controlsHideDelay { 2500 };
    static constexpr std::chrono::milliseconds cursorHideDelay { 2000 };

    /// All three outlive the view.
    ContentView(
        PlayerModel &model, UserDefaults &defaults, FilePanels &panels, QObject *parent = nullptr);
    ~ContentView() override;

    PlayerModel *model() const { return &m_model; }
    LocalM3UStore *localM3UStore() { return &m_localM3UStore; }
    ChannelBrowser *channels() { return &m_channels; }
    ImageLoader *logos() { return &m_logos; }
    PlayerControlBar *controlBar() { return &m_controlBar; }

    /// The view is drawn in `window`: from now on the keys control the player, and full screen. To
    /// be called once.
    Q_INVOKABLE void appear(QQuickWindow *window);

    bool showSidebar() const { return m_controlBar.showSidebar(); }
    int sidebarAnimation() const
    {
        return static_cast<int>(m_controlBar.sidebarAnimation().count());
    }
    PlayerSidebarSection selectedSidebarSection() const { return m_selectedSidebarSection; }
    void setSelectedSidebarSection(PlayerSidebarSection section);
    const QString &address() const { return m_address; }
    /// Without line breaks, and without blanks around it. One that can be opened opens by itself a
    /// while after its last change.
    void setAddress(const QString &address);
    bool isStreamAddressFocused() const { return m_isStreamAddressFocused; }
    void setStreamAddressFocused(bool focused);
    bool showMovieName() const { return m_showMovieName; }
    void setShowMovieName(bool show);
    const QString &movieName() const { return m_movieName; }
    void setMovieName(const QString &name);
    bool movieNameToggleHovered() const { return m_movieNameToggleHovered; }
    void setMovieNameToggleHovered(bool hovered);
    QString movieNameToggleHelp() const;
    /// The last list of channels that was opened from the network.
    const QList<PlaylistEntry> &networkPlaylist() const { return m_networkPlaylist; }
    /// Opens what the address field says, now.
    Q_INVOKABLE void openStream();
    /// Empties the panel, and stops what came from the network.
    Q_INVOKABLE void clearNetworkStream();

    QString chooseFileText() const;
    /// Lets the user choose a list, and puts it in place of the saved links.
    Q_INVOKABLE void importLocalPlaylist();

    bool isFullScreen() const { return m_isFullScreen; }
    bool fullScreenControlsVisible() const { return m_fullScreenControlsVisible; }
    Q_INVOKABLE void toggleFullScreen();
    /// Brings the window before the others.
    void raise();
    /// Shows the controls for the next while.
    void showFullScreenControls();

    /// Hides the cursor a while from now, if it then still rests on what plays in `window`.
    void scheduleCursorHideIfNeeded(QWindow &window);
    bool isMouseOverPlayer(const QWindow &window) const;
    bool isCursorHidden() const { return m_cursor.isHidden(); }

    /// Whether something dragged over the window can be played: the first of `urls` is a file. If
    /// so, its player loads while the mouse is still on its way.
    Q_INVOKABLE bool acceptsDrop(const QList<QUrl> &urls) const;
    /// Plays the first file.
    Q_INVOKABLE void drop(const QList<QUrl> &urls);
    /// Plays a file or a stream.
    void openUrl(const QUrl &url);
    /// Opens what the desktop hands over: a list shows its channels in the sidebar, a service's
    /// video its page; anything else plays.
    void openFromDesktop(const QUrl &url);

    const QList<LocalM3UItemEditView *> &editForms() const { return m_editForms; }
    /// Opens the sheet for a new link.
    Q_INVOKABLE void addLocalEntry();
    /// Opens the sheet for a saved link.
    void editLocalEntry(const PlaylistEntry &entry);
    /// The same for a row of the local section. One that does not exist is ignored.
    Q_INVOKABLE void editLocalChannel(int row);

    bool confirmingLocalClear() const { return m_confirmingLocalClear; }
    void setConfirmingLocalClear(bool confirming);
    /// The user agreed.
    Q_INVOKABLE void clearLocalEntries();

    bool confirmingLocalDelete() const { return m_deletingLocalEntry.has_value(); }
    QString localDeleteMessage() const;
    /// Asks whether to delete the saved link; nothing asks no more.
    void setDeletingLocalEntry(const std::optional<PlaylistEntry> &entry);
    /// The same for a row of the local section. One that does not exist is ignored.
    Q_INVOKABLE void askToDeleteLocalChannel(int row);
    Q_INVOKABLE void cancelLocalDelete() { setDeletingLocalEntry({}); }
    /// The user agreed.
    Q_INVOKABLE void deleteLocalEntry();

Q_SIGNALS:
    void showSidebarChanged();
    void selectedSidebarSectionChanged();
    void addressChanged();
    void isStreamAddressFocusedChanged();
    void showMovieNameChanged();
    void movieNameChanged();
    void movieNameToggleHoveredChanged();
    void networkPlaylistChanged();
    void chooseFileTextChanged();
    void isFullScreenChanged();
    void fullScreenControlsVisibleChanged();
    void editFormsChanged();
    void confirmingLocalClearChanged();
    void deletingLocalEntryChanged();

private:
    void sidebarShownOrHidden();
    void handleAddressChange(const QString &address);
    void scheduleAutomaticOpen(const QString &text);
    void takePlaylist();
    void followPlaying();
    void mouseMoved(QWindow *window);
    void surfaceClicked();
    void openAddress(const QUrl &url);
    void showNetworkSection();
    void followWindowState(Qt::WindowStates states);
    bool handleKeyPress(const QKeyEvent &press);
    void setFullScreenControlsVisible(bool visible);
    void hideFullScreenControlsLater();
    void hideCursorIfUnused(QWindow &window);
    /// A sheet or an alert.
    bool isDialogOpen() const;
    void openEditSheet(
        const std::optional<PlaylistEntry> &entry, LocalM3UItemEditView::Save onSave);
    void closeEditSheet(LocalM3UItemEditView *form);

    PlayerModel &m_model;
    FilePanels &m_panels;
    LocalM3UStore m_localM3UStore;
    ChannelBrowser m_channels { m_model, m_localM3UStore };
    ImageLoader m_logos;
    PlayerControlBar m_controlBar { m_model };
    QPointer<QQuickWindow> m_window;
    std::optional<EventMonitor> m_keyboardMonitor;
    CursorHider m_cursor;

    PlayerSidebarSection m_selectedSidebarSection = PlayerSidebarSection::Network;
    QList<PlaylistEntry> m_networkPlaylist;
    QString m_address;
    bool m_isStreamAddressFocused = false;
    bool m_showMovieName = false;
    QString m_movieName;
    bool m_movieNameToggleHovered = false;

    bool m_isFullScreen = false;
    bool m_fullScreenControlsVisible = false;

    QList<LocalM3UItemEditView *> m_editForms;
    bool m_confirmingLocalClear = false;
    std::optional<PlaylistEntry> m_deletingLocalEntry;

    Delay m_addressFocusTask;
    Delay m_autoOpenTask;
    Delay m_controlsHideTask;
    Delay m_cursorHideTask;
};

} // namespace zeph
