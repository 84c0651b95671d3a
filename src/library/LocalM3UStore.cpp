#include "library/LocalM3UStore.h"

#include "player/PlayerModel.h"
#include "sources/PlaylistEntryJson.h"
#include "sources/UrlPath.h"

#include <algorithm>
#include <utility>

namespace zeph {

namespace {

QString nameToSave(const PlaylistEntry &entry)
{
    const auto name = trimmedOrNothing(entry.name());
    return name ? *name : lastPathComponentWithoutExtension(entry.url());
}

} // namespace

QString LocalM3UStore::defaultsKey()
{
    return QStringLiteral("ZephPlayer.LocalM3U.SavedEntries");
}

LocalM3UStore::LocalM3UStore(
    UserDefaults &defaults, PlayerModel &model, FilePanels &panels, QObject *parent)
    : QObject(parent), m_defaults(defaults), m_model(model), m_panels(panels)
{
    takeStoredEntries();
}

bool LocalM3UStore::contains(const AddressText &url) const
{
    return m_addresses.contains(url.text());
}

bool LocalM3UStore::contains(const PlaylistEntry &entry) const
{
    return m_addresses.contains(entry.address());
}

void LocalM3UStore::saveToLocalM3U(const PlaylistEntry &entry)
{
    const auto url = AddressText::fromText(QString(entry.address()));
    if (!url)
        return;
    const QString name = nameToSave(entry);
    insertAtFront({ {}, name, *url, AddressText::fromText(QString(entry.logoAddress())),
        entry.groupTitle(), entry.countryCode() });
    showSuccess(tr("Saved to Local M3U: ") + name);
}

void LocalM3UStore::add(const PlaylistEntry::Fields &fields)
{
    insertAtFront(fields);
}

void LocalM3UStore::insertAtFront(PlaylistEntry::Fields fields)
{
    fields.id = QUuid::createUuid();
    change([entry = PlaylistEntry(fields)](QList<PlaylistEntry> &entries) {
        const auto same = std::find_if(entries.cbegin(), entries.cend(),
            [&](const PlaylistEntry &other) { return other.address() == entry.address(); });
        if (same != entries.cend())
            entries.erase(same);
        entries.prepend(entry);
        return true;
    });
}

void LocalM3UStore::update(const PlaylistEntry::Fields &fields)
{
    change([&](QList<PlaylistEntry> &entries) {
        const auto old = std::find_if(entries.cbegin(), entries.cend(),
            [&](const PlaylistEntry &entry) { return entry.id() == fields.id; });
        if (old == entries.cend())
            return false;
        entries.replace(old - entries.cbegin(), PlaylistEntry(fields));
        return true;
    });
}

// By value: the list may hold the last of it, and its name is still to be told.
void LocalM3UStore::remove(PlaylistEntry entry)
{
    change([&](QList<PlaylistEntry> &entries) {
        return entries.removeIf([id = entry.id()](const PlaylistEntry &other) {
            return other.id() == id;
        }) > 0;
    });
    showSuccess(tr("Removed: ") + entry.name());
}

void LocalM3UStore::clear()
{
    change([](QList<PlaylistEntry> &entries) {
        entries.clear();
        return true;
    });
}

void LocalM3UStore::replaceEntries(const QList<PlaylistEntry> &entries)
{
    if (entries.isEmpty())
        return;
    change([&](QList<PlaylistEntry> &current) {
        current = entries;
        return true;
    });
}

void LocalM3UStore::importLocalPlaylist(const QString &displayName)
{
    const auto entries = m_model.importLocalM3U(displayName);
    // Where new lists of the model become the saved links, this one is there already.
    if (entries && *entries != m_entries)
        replaceEntries(*entries);
}

void LocalM3UStore::persist()
{
    tellOutcome(store(m_defaults.lock()));
}

// Whoever is told of the change may make another, so the lock is released by then.
void LocalM3UStore::change(const Edit &edit)
{
    bool isChanged = false;
    bool isEdited = false;
    std::optional<QString> storeError;
    {
        const FolderLock lock = m_defaults.lock();
        isChanged = takeStoredEntries();
        isEdited = edit(m_entries);
        if (isEdited) {
            takeAddresses();
            storeError = store(lock);
        }
    }
    if (isEdited)
        tellOutcome(storeError);
    if (isChanged || isEdited)
        Q_EMIT entriesChanged();
}

bool LocalM3UStore::takeStoredEntries()
{
    const bool hasUnstoredEntries = !m_errorMessage.isEmpty();
    if (hasUnstoredEntries)
        return false;
    auto json = m_defaults.text(defaultsKey());
    if (!json || json == m_storedJson)
        return false;
    m_storedJson = std::move(json);
    auto entries = playlistFromJson(*m_storedJson);
    if (!entries)
        return false;
    m_entries = *std::move(entries);
    takeAddresses();
    return true;
}

void LocalM3UStore::takeAddresses()
{
    m_addresses.clear();
    m_addresses.reserve(m_entries.size());
    for (const PlaylistEntry &entry : std::as_const(m_entries))
        m_addresses.insert(entry.address());
}

std::optional<QString> LocalM3UStore::store(const FolderLock &lock)
{
    QByteArray json = playlistToJson(m_entries);
    auto error = m_defaults.setText(lock, defaultsKey(), json);
    if (!error)
        m_storedJson = std::move(json);
    return error;
}

void LocalM3UStore::tellOutcome(const std::optional<QString> &storeError)
{
    const QString message = storeError ? tr("Could not save Local M3U: ") + *storeError : QString();
    if (storeError)
        m_model.showToast(message, toastNanoseconds);
    if (std::exchange(m_errorMessage, message) != message)
        Q_EMIT errorMessageChanged();
}

void LocalM3UStore::showSuccess(const QString &message)
{
    if (m_errorMessage.isEmpty())
        m_model.showToast(message, toastNanoseconds);
}

} // namespace zeph
