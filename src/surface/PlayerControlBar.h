// The row of controls under the picture.
#pragma once

#include "player/PlayerModel.h"
#include "surface/DisplayModeItem.h"

#include <chrono>

namespace zeph {

/// What the controls show and do. PlayerControlBarRow.qml draws them. Main thread only.
class PlayerControlBar : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The main window owns its control bar.")

    Q_PROPERTY(zeph::PlayerModel *model READ model CONSTANT)

    Q_PROPERTY(QString playSymbol READ playSymbol NOTIFY playChanged)
    Q_PROPERTY(QString playHelp READ playHelp NOTIFY playChanged)
    Q_PROPERTY(QString muteSymbol READ muteSymbol NOTIFY muteChanged)
    Q_PROPERTY(QString elapsedTime READ elapsedTime NOTIFY elapsedTimeChanged)
    Q_PROPERTY(QString remainingTime READ remainingTime NOTIFY remainingTimeChanged)

    /// The user is dragging the seek slider.
    Q_PROPERTY(bool seeking READ seeking WRITE setSeeking NOTIFY seekingChanged)
    /// The end of the seek slider, in seconds. Its beginning is 0.
    Q_PROPERTY(double seekRange READ seekRange NOTIFY seekRangeChanged)
    /// Where the seek slider stands, in seconds.
    Q_PROPERTY(double seekPosition READ seekPosition NOTIFY seekPositionChanged)
    /// The user is dragging the volume slider.
    Q_PROPERTY(bool settingVolume MEMBER m_settingVolume NOTIFY settingVolumeChanged)

    Q_PROPERTY(QList<zeph::DisplayModeItem> displayModes READ displayModes CONSTANT)
    Q_PROPERTY(zeph::portraitDisplay::Mode portraitMode READ portraitMode WRITE setPortraitMode
            NOTIFY portraitModeChanged)
    Q_PROPERTY(QString displayModeSymbol READ displayModeSymbol NOTIFY portraitModeChanged)
    Q_PROPERTY(bool showSidebar READ showSidebar NOTIFY showSidebarChanged)

public:
    static constexpr std::chrono::milliseconds sidebarToggleAnimation { 180 };
    static constexpr std::chrono::milliseconds sidebarHideAnimation { 160 };

    /// `model` outlives the control bar.
    explicit PlayerControlBar(PlayerModel &model, QObject *parent = nullptr);

    PlayerModel *model() const { return &m_model; }

    QString playSymbol() const;
    QString playHelp() const;
    QString muteSymbol() const;
    QString elapsedTime() const;
    QString remainingTime() const;

    bool seeking() const { return m_seeking; }
    /// The end of a drag seeks to where the slider was let go.
    void setSeeking(bool seeking);
    double seekRange() const;
    double seekPosition() const;
    /// The slider has a new value. While it is dragged that is only kept; one that neither the
    /// mouse nor the model gave it, but for example a screen reader, is sought at once.
    Q_INVOKABLE void moveSeekSlider(double seconds);

    Q_INVOKABLE void setVolume(double volume);

    /// The user is dragging one of the sliders.
    bool isDragged() const { return m_seeking || m_settingVolume; }

    const QList<DisplayModeItem> &displayModes() const { return m_displayModes; }
    PortraitDisplayMode portraitMode() const { return m_portraitMode; }
    void setPortraitMode(PortraitDisplayMode mode);
    QString displayModeSymbol() const { return displayModeLabelSymbol(m_portraitMode); }
    /// Sets the mode; a portrait column needs the width, so it hides the sidebar.
    Q_INVOKABLE void selectDisplayMode(zeph::portraitDisplay::Mode mode);

    bool showSidebar() const { return m_showSidebar; }
    void setShowSidebar(bool show, std::chrono::milliseconds animation);
    /// How long the sidebar takes to slide to where it is to be by now.
    std::chrono::milliseconds sidebarAnimation() const { return m_sidebarAnimation; }
    Q_INVOKABLE void toggleSidebar();

    /// Of the window that has the keyboard, if one of ours has.
    Q_INVOKABLE void toggleFullScreen();

Q_SIGNALS:
    void playChanged();
    void muteChanged();
    void elapsedTimeChanged();
    void remainingTimeChanged();
    void seekingChanged();
    void seekRangeChanged();
    void seekPositionChanged();
    void settingVolumeChanged();
    void portraitModeChanged();
    void showSidebarChanged();

private:
    PlayerModel &m_model;
    const QList<DisplayModeItem> m_displayModes = displayModeItems();
    bool m_seeking = false;
    double m_seekValue = 0; ///< Where the slider was dragged to, in seconds.
    bool m_settingVolume = false;
    PortraitDisplayMode m_portraitMode = PortraitDisplayMode::Normal;
    bool m_showSidebar = false;
    std::chrono::milliseconds m_sidebarAnimation { 0 };
};

} // namespace zeph
