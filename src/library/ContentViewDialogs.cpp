// Sheets and alerts.
#include "library/ContentView.h"

#include <utility>

namespace zeph {

bool ContentView::isDialogOpen() const
{
    return !m_editForms.isEmpty() || confirmingLocalClear() || confirmingLocalDelete();
}

void ContentView::addLocalEntry()
{
    openEditSheet({}, [this](const PlaylistEntry::Fields &fields) { m_localM3UStore.add(fields); });
}

void ContentView::editLocalEntry(const PlaylistEntry &entry)
{
    openEditSheet(
        entry, [this](const PlaylistEntry::Fields &fields) { m_localM3UStore.update(fields); });
}

void ContentView::editLocalChannel(int row)
{
    if (const auto entry = m_channels.localChannels()->entry(row))
        editLocalEntry(*entry);
}

void ContentView::openEditSheet(
    const std::optional<PlaylistEntry> &entry, LocalM3UItemEditView::Save onSave)
{
    if (!m_editForms.isEmpty())
        return;
    auto *form = new LocalM3UItemEditView(entry, m_panels, std::move(onSave), this);
    connect(form, &LocalM3UItemEditView::dismissed, this, [this, form] { closeEditSheet(form); });
    m_editForms << form;
    Q_EMIT editFormsChanged();
}

void ContentView::closeEditSheet(LocalM3UItemEditView *form)
{
    if (!m_editForms.removeOne(form))
        return;
    Q_EMIT editFormsChanged();
    form->deleteLater();
}

void ContentView::setConfirmingLocalClear(bool confirming)
{
    if (std::exchange(m_confirmingLocalClear, confirming) != confirming)
        Q_EMIT confirmingLocalClearChanged();
}

void ContentView::clearLocalEntries()
{
    m_localM3UStore.clear();
    setConfirmingLocalClear(false);
}

QString ContentView::localDeleteMessage() const
{
    return m_deletingLocalEntry
        ? tr("Are you sure you want to delete \"%1\" from Local M3U? This action cannot be undone.")
              .arg(m_deletingLocalEntry->name())
        : tr("Are you sure you want to delete this channel? This action cannot be undone.");
}

void ContentView::setDeletingLocalEntry(const std::optional<PlaylistEntry> &entry)
{
    if (std::exchange(m_deletingLocalEntry, entry) != entry)
        Q_EMIT deletingLocalEntryChanged();
}

void ContentView::askToDeleteLocalChannel(int row)
{
    if (const auto entry = m_channels.localChannels()->entry(row))
        setDeletingLocalEntry(entry);
}

void ContentView::deleteLocalEntry()
{
    if (m_deletingLocalEntry)
        m_localM3UStore.remove(*m_deletingLocalEntry);
    setDeletingLocalEntry({});
}

} // namespace zeph
