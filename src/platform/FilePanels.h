// The panels in which the user chooses files, and alerts.
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

struct SavePanel {
    QString title;
    /// The label of the button that accepts.
    QString prompt;
    QString suggestedName;
    /// What files of this kind are called in the panel's filter, for example "M3U playlist".
    QString fileKind;
    /// Without the dot. A name without an extension gets this one.
    QString extension;
};

struct WarningAlert {
    QString message;
    /// What went wrong, in smaller letters.
    QString informativeText;
};

/// Shows panels and waits for the user's answer. Tests put an implementation of their own in place
/// of the real one. Main thread only.
class FilePanels {
public:
    virtual ~FilePanels() = default;

    /// Lets the user choose one existing file. Nothing when the user cancels.
    virtual std::optional<QUrl> chooseFile(const OpenPanel &panel) = 0;
    /// Lets the user choose where to put a file; a name that exists already only when the user
    /// agrees to lose what is there. Nothing when the user cancels.
    virtual std::optional<QUrl> chooseSaveFile(const SavePanel &panel) = 0;
    /// Returns once the user has read it.
    virtual void showWarning(const WarningAlert &alert) = 0;
};

/// The desktop's own panels.
class DesktopFilePanels final : public FilePanels {
public:
    std::optional<QUrl> chooseFile(const OpenPanel &panel) override;
    std::optional<QUrl> chooseSaveFile(const SavePanel &panel) override;
    void showWarning(const WarningAlert &alert) override;
};

} // namespace zeph
