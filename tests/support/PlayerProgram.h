// The built program, as its user meets it: on a screen, with a keyboard and a mouse.
#pragma once

#include "support/XWindow.h"

#include <QProcess>

#include <cstdlib>

/// Started when it is made, and ended by force when it is destroyed. The environment variable
/// ZEPH_PLAYER says which program it is.
class PlayerProgram {
public:
    /// `environment` holds NAME=VALUE texts that are added to this process's own.
    explicit PlayerProgram(const QStringList &arguments = {}, const QStringList &environment = {});
    ~PlayerProgram();

    bool isRunning();
    /// By itself and with 0.
    bool endedWell() const { return endedWith(EXIT_SUCCESS); }
    /// By itself and with this.
    bool endedWith(int exitStatus) const;
    qint64 id() const { return m_process.processId(); }

    /// Its main window; null until it shows.
    XWindow window() const;
    QString title() const { return window().title(); }
    QImage picture() const { return window().picture(); }
    /// Waits until the middle of its window has shown several pictures, one after the other.
    bool pictureMoves() const;
    void press(const QString &keys) const { window().press(keys); }

private:
    QProcess m_process;
    mutable XWindow m_window;
};
