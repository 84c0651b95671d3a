#include "platform/FilePanels.h"

#include <QFileDialog>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPixmapCache>
#include <QWindow>

namespace zeph {

namespace {

QString nameFilter(const QString &fileKind, const QStringList &extensions)
{
    QStringList patterns;
    for (const QString &extension : extensions)
        patterns += QStringLiteral("*.") + extension;
    return QStringLiteral("%1 (%2)").arg(fileKind, patterns.join(QLatin1Char(' ')));
}

// A panel belongs to the window it was asked for from: it stays above it, and is placed over it.
void attachToFocusWindow(QDialog &dialog)
{
    QWindow *parent = QGuiApplication::focusWindow();
    if (!parent)
        return;
    dialog.winId(); // creates the window handle
    dialog.windowHandle()->setTransientParent(parent);
}

std::optional<QUrl> answerOf(QFileDialog &dialog)
{
    attachToFocusWindow(dialog);
    const int result = dialog.exec();
    // The next panel makes icons of its own, and does not find those of this one.
    QPixmapCache::clear();
    if (result != QDialog::Accepted || dialog.selectedUrls().isEmpty())
        return std::nullopt;
    return dialog.selectedUrls().constFirst();
}

} // namespace

std::optional<QUrl> DesktopFilePanels::chooseFile(const OpenPanel &panel)
{
    QFileDialog dialog(nullptr, panel.title);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilter(nameFilter(panel.fileKind, panel.extensions));
    if (!panel.prompt.isEmpty())
        dialog.setLabelText(QFileDialog::Accept, panel.prompt);
    return answerOf(dialog);
}

std::optional<QUrl> DesktopFilePanels::chooseSaveFile(const SavePanel &panel)
{
    QFileDialog dialog(nullptr, panel.title);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setSupportedSchemes({ QStringLiteral("file") });
    dialog.setNameFilter(nameFilter(panel.fileKind, { panel.extension }));
    dialog.setDefaultSuffix(panel.extension);
    dialog.setLabelText(QFileDialog::Accept, panel.prompt);
    dialog.selectFile(panel.suggestedName);
    return answerOf(dialog);
}

void DesktopFilePanels::showWarning(const WarningAlert &alert)
{
    QMessageBox box(QMessageBox::Warning, QGuiApplication::applicationDisplayName(), alert.message,
        QMessageBox::Ok);
    box.setInformativeText(alert.informativeText);
    box.setTextFormat(Qt::PlainText);
    attachToFocusWindow(box);
    box.exec();
}

} // namespace zeph
