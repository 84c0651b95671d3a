// A user of the built program, who does one thing after the other.
#pragma once

#include "app/SidebarPlayer.h"
#include "SoakMedia.h"

#include <QMap>
#include <QRandomGenerator>

/// What it does is random, and the same for the same seed as far as the program is as fast.
class SoakUser {
public:
    /// All outlive it.
    SoakUser(
        const SidebarPlayer &player, AccessibilityBus &bus, const SoakMedia &media, quint32 seed);

    /// Does something that is possible now, and tells what.
    QString act();
    /// Closes everything: leaves an empty window of a certain size. Answers with the step that
    /// could not be done; empty when all could.
    QString rest();
    /// How often each thing was done; those that are only possible at times may be missing.
    const QMap<QString, int> &counts() const { return m_counts; }

private:
    struct Action {
        const char *name;
        int weight;
        bool (SoakUser::*perform)();
    };
    static const QList<Action> &actions();
    bool openFile();
    bool openFileInPanel();
    bool openStream();
    bool openShortList();
    bool openLongList();
    bool openBrokenList();
    bool openWebVideo();
    bool clearNetwork();
    bool switchChannel();
    bool scrollChannels();
    bool search();
    bool filter();
    bool changeSection();
    bool saveChannel();
    bool addLink();
    bool editLink();
    bool deleteLink();
    bool importLinks();
    bool exportLinks();
    bool toggleSidebar();
    bool toggleMovieName();
    bool pressControl();
    bool pressKey();
    bool chooseFromMenu();
    bool movePosition();
    bool moveVolume();
    bool commandFromDesktop();
    bool chooseMode();
    bool smartMode();
    bool toggleFullScreen();
    bool resizeWindow();
    bool moveAcross();
    bool clickPicture();

    int below(int end) { return static_cast<int>(m_random.bounded(end)); }
    template <typename List> auto anyOf(const List &list)
    {
        return list.at(below(static_cast<int>(list.size())));
    }
    bool enterAddress(const QString &address);
    bool chooseMode(const QString &mode);
    /// Of the menu that is open, or about to open.
    bool chooseAnyMenuItem();
    bool moveSlider(const QString &name);
    bool fillSheet();
    bool deleteAllLinks();
    bool answerPanel(const QString &title, const QString &path);
    bool closePanels();
    bool closeMenus();
    /// Closes a sheet or an alert, if one is open.
    bool cancelWhatAsks();
    bool closeSidebar();
    bool shrinkWindow();
    bool setFullScreen(bool fullScreen);
    bool showSection(const QString &name);
    /// Those of a section that are in sight, whose sidebar it opens.
    QList<AccessibleObject> channels(const QString &section);
    bool pressInAnyRow(const QString &section, const QString &button);
    /// As the desktop's media controls do.
    bool callPlayer(const QString &method, const QVariantList &arguments) const;
    void press(const char *keys) const { m_player.window().press(QLatin1StringView(keys)); }

    const SidebarPlayer &m_player;
    const QDBusConnection m_desktop;
    const SoakMedia &m_media;
    QRandomGenerator m_random;
    QMap<QString, int> m_counts;
};
