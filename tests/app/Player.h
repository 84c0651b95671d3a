// The built program with its main window, driven from outside.
#pragma once

#include "support/AccessibleProgram.h"
#include "support/Patience.h"

#include <QGuiApplication>
#include <QScreen>

using Role = AccessibleObject::Role;
using State = AccessibleObject::State;

inline const QString controls = QStringLiteral("Playback controls");
inline const QString playButton = QStringLiteral("Play");
inline const QString pauseButton = QStringLiteral("Pause");
inline const QString positionSlider = QStringLiteral("Position");
inline const QString volumeSlider = QStringLiteral("Volume");
inline const QString sidebar = QStringLiteral("Sidebar");
inline const QString sidebarButton = QStringLiteral("Show or hide sidebar");
inline const QString modeButton = QStringLiteral("Video display mode");

inline QString clip(const char *name)
{
    return qEnvironmentVariable("ZEPH_CLIPS") + u'/' + QLatin1StringView(name);
}

class Player : public AccessibleProgram {
public:
    using AccessibleProgram::AccessibleProgram;

    bool shows(Role role, const QString &name) const { return bool(find(role, name)); }
    bool pressButton(const QString &name) const { return press(Role::Button, name); }
    double positionValue() const { return find(Role::Slider, positionSlider).value(); }

    bool fillsScreen() const
    {
        return window().contents().size() == QGuiApplication::primaryScreen()->size();
    }
    /// Whether the window, and what is in it, is where it says: where the mouse meets it.
    bool isInPlace() const
    {
        const QRect row = find(Role::ToolBar, controls).rectangle();
        const QRect last = find(Role::Button, QStringLiteral("Enter full screen")).rectangle();
        return !row.isEmpty() && row.right() - last.right() == 10
            && findAll(Role::Frame).value(0).rectangle() == window().contents();
    }
    /// Whether the window has taken the width at which a picture of this ratio fills it.
    bool isFittedTo(double aspectRatio) const
    {
        const QSize size = picturePart().size();
        return isInPlace() && std::abs(size.width() - size.height() * aspectRatio) < 1;
    }
    bool hasMenuBar() const { return !findAll(Role::MenuBar).isEmpty(); }
    /// The part of a window that shows the picture, on the screen: between the menu bar and the
    /// controls, beside the sidebar.
    QRect picturePart() const
    {
        const QRect below = find(Role::ToolBar, controls).rectangle();
        const int top = findAll(Role::MenuBar).value(0).rectangle().bottom() + 1;
        return { below.left(), top, below.width(), below.top() - top };
    }
};
