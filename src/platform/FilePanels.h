// The panels in which the user chooses files.
#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>

#include <optional>

namespace zeph {

struct OpenPanel {
    QString title;
    /// What the accepted files are called in the panel's filter, for example "Media".
    QString fileKind;
    /// Accepted file name extensions, without the dot.
    QStringList extensions;
    /// What the button that accepts the choice says; the desktop's own word when empty.
    QString prompt {};
};

/// Shows panels and waits for the user's answer. Tests put an implementation of their own in place
/// of the real one. Main thread only.
class FilePanels {
public:
    virtual ~FilePanels() = default;

    /// Lets the user choose one existing file. Nothing when the user cancels.
    virtual std::optional<QUrl> chooseFile(const OpenPanel &panel) = 0;
};

/// The desktop's own panels.
class DesktopFilePanels final : public FilePanels {
public:
    std::optional<QUrl> chooseFile(const OpenPanel &panel) override;
};

} // namespace zeph
