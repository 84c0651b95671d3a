#include "platform/FilePanels.h"

#include <QFileDialog>
#include <QGuiApplication>
#include <QWindow>

namespace zeph {

namespace {

QString nameFilter(const OpenPanel &panel)
{
    QStringList patterns;
    for (const QString &extension : panel.extensions)
        patterns += QStringLiteral("*.") + extension;
    return QStringLiteral("%1 (%2)").arg(panel.fileKind, patterns.join(QLatin1Char(' ')));
}

// A panel belongs to the window it was asked for from: it stays above it, and is placed over it.
void attachToFocusWindow(QFileDialog &dialog)
{
    QWindow *parent = QGuiApplication::focusWindow();
    if (!parent)
        return;
    dialog.winId(); // creates the window handle
    dialog.windowHandle()->setTransientParent(parent);
}

} // namespace

std::optional<QUrl> DesktopFilePanels::chooseFile(const OpenPanel &panel)
{
    QFileDialog dialog(nullptr, panel.title);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilter(nameFilter(panel));
    if (!panel.prompt.isEmpty())
        dialog.setLabelText(QFileDialog::Accept, panel.prompt);
    attachToFocusWindow(dialog);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedUrls().isEmpty())
        return std::nullopt;
    return dialog.selectedUrls().constFirst();
}

} // namespace zeph
