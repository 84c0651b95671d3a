// A real window that shows what a player plays, for tests that look at the screen.
#pragma once

#include "platform/MediaPlayer.h"
#include "surface/PlayerLayerView.h"

#include <QImage>
#include <QQuickWindow>

/// The window is closed and its player gone when this is destroyed.
class VideoWindow {
public:
    explicit VideoWindow(QSize size);

    /// Makes an application object fit for windows with video. To be called instead of
    /// QTEST_MAIN's.
    static int runTest(QObject &test, int argc, char *argv[]);

    QQuickWindow &window() { return m_window; }
    zeph::MediaPlayer &player() { return m_player; }
    zeph::PlayerLayerView &view() { return m_view; }
    /// The native surface within the view.
    zeph::PlayerHostingView &hostingView() { return m_view.hostingView(); }

    /// The window, and the view in it.
    void resize(QSize size);

    void open(const QString &clip);
    bool isOpen() const;

    /// What the screen shows of the window, straight from the display server.
    QImage screen() const;
    QColor colourAt(double x, double y) const;

    /// The number that a numbered clip's picture carries; -1 when it is not readable.
    int pictureNumber() const;

private:
    zeph::MediaPlayer m_player;
    QQuickWindow m_window;
    zeph::PlayerLayerView m_view { m_window.contentItem() };
};

/// Whether none of red, green and blue is off by more than `tolerance`, of 255.
bool isNear(QColor colour, QColor expected, int tolerance);

/// The path of a clip that tests/clips/make-clips made.
QString clipPath(const QString &name);
