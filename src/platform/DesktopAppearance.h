// Whether the desktop is light or dark.
#pragma once

#include <QObject>
#include <QPalette>
#include <QVariant>

namespace zeph {

/// Gives the application a dark palette while the desktop's settings ask for one, and its own one
/// otherwise. A desktop that has a theme of its own for us, light or dark, is left alone, and so is
/// one that tells nothing. Needs the application object. Main thread only.
class DesktopAppearance : public QObject {
    Q_OBJECT

public:
    explicit DesktopAppearance(QObject *parent = nullptr);

    /// Asks the desktop, which answers some time later, and listens for changes from then on.
    void follow();

private Q_SLOTS:
    void ask();

private:
    void take(QVariant answer);
    void setColorScheme(uint scheme);

    const QPalette m_ownPalette;
};

} // namespace zeph
