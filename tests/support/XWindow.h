// A window as the display server and the window manager have it, and what a user does with it.
#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QString>

/// What a program of the X Window System answers; empty when it fails.
QString answerOf(const QString &program, const QStringList &arguments);
QString xdotool(const QStringList &arguments);

/// Moves the pointer there, by a pixel beside it first, so that it moves in any case.
void moveMouse(const QPoint &point);
/// Presses the left button at one place and lets it go at the other, moving in steps in between.
void pressAndMove(const QPoint &from, const QPoint &to);
void releaseMouse();

class XWindow {
public:
    /// Nothing, or the window of this number.
    explicit XWindow(const QString &id = {}) : m_id(id) { }

    const QString &id() const { return m_id; }
    bool isNull() const { return m_id.isEmpty(); }

    QString title() const;
    /// On the screen, in its pixels.
    QRect contents() const;
    /// The contents with the frame around them.
    QRect frame() const;
    QImage picture() const;
    /// Whether it has told the desktop an icon of its own.
    bool hasIcon() const;

    /// Gives it the keyboard and presses keys, in xdotool's words.
    void press(const QString &keys) const;

private:
    QString m_id;
};
