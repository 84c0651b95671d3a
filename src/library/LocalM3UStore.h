// The user's saved links.
#pragma once

#include "platform/UserDefaults.h"
#include "sources/PlaylistEntry.h"

#include <QDate>
#include <QLatin1String>
#include <QList>
#include <QObject>
#include <QQmlEngine>
#include <QSet>

#include <functional>
#include <optional>

namespace zeph {

class FilePanels;
class PlayerModel;

/// The list of saved links, which is stored whole with every change. New ones go to its front; an
/// imported list keeps its order.
///
/// Several windows and processes of one user may change the list: each change starts from what is
/// stored by then, and is made to that. A list that could not be stored stays as it is here, with
/// `errorMessage` telling why, and the next change stores it in place of what is there.
///
/// Main thread only.
class LocalM3UStore : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The main window owns its store.")

    Q_PROPERTY(QList<zeph::PlaylistEntry> entries READ entries NOTIFY entriesChanged)
    /// Why the list is not stored, a sentence to show, also shown as a toast; empty when it is.
    Q_PROPERTY(QString errorMessage READ errorMessage NOTIFY errorMessageChanged)

public:
    /// What the list is stored under, as a JSON array.
    static QString defaultsKey();

    /// Starts with the stored list, or with none if that cannot be read; it is not overwritten
    /// before the first change. All three outlive the store.
    LocalM3UStore(
        UserDefaults &defaults, PlayerModel &model, FilePanels &panels, QObject *parent = nullptr);

    const QList<PlaylistEntry> &entries() const { return m_entries; }
    const QString &errorMessage() const { return m_errorMessage; }

    /// Whether an entry has exactly this address, letter by letter. Takes the same time for any
    /// number of entries.
    bool contains(const AddressText &url) const;
    /// Whether an entry has the address of `entry`.
    bool contains(const PlaylistEntry &entry) const;

    /// Saves a copy of `entry` at the front, in place of an entry with its address, and shows a
    /// toast.
    void saveToLocalM3U(const PlaylistEntry &entry);
    /// Adds an entry at the front, in place of one with its address. Its id is a new one.
    void add(const PlaylistEntry::Fields &fields);
    /// Replaces the first entry with the id of `fields`. Changes nothing when there is none.
    void update(const PlaylistEntry::Fields &fields);
    /// Removes every entry with the id of `entry`, and shows a toast.
    void remove(PlaylistEntry entry);
    void clear();
    /// Puts a list that was opened in place of this one. An empty one changes nothing.
    void replaceEntries(const QList<PlaylistEntry> &entries);
    /// Lets the user choose a list, which the model opens under `displayName`, and puts it in place
    /// of this one. Changes nothing when the user cancels or the list cannot be read, of which the
    /// model tells.
    void importLocalPlaylist(const QString &displayName);

    /// Stores the list as it is here, whatever is stored. Every change does so by itself.
    void persist();

    /// Lets the user choose a file, and writes the list there. A toast tells of success, an alert
    /// of failure, after which the file is as it was. Does nothing when the list is empty.
    Q_INVOKABLE void exportLocalPlaylistAsM3U();
    /// The name that is suggested for an exported list.
    static QString defaultExportM3UFilename(QDate today = QDate::currentDate());

Q_SIGNALS:
    void entriesChanged();
    void errorMessageChanged();

private:
    /// Returns whether it changed the list.
    using Edit = std::function<bool(QList<PlaylistEntry> &)>;

    /// Applies `edit` to the list that is stored by now, and stores the outcome.
    void change(const Edit &edit);
    void insertAtFront(PlaylistEntry::Fields fields);
    /// Takes over what others stored. Returns whether that changed the list.
    bool takeStoredEntries();
    void takeAddresses();
    /// Returns nothing, or why it failed.
    std::optional<QString> store(const FolderLock &lock);
    void tellOutcome(const std::optional<QString> &storeError);
    /// A toast, unless the list could not be stored.
    void showSuccess(const QString &message);

    static constexpr quint64 toastNanoseconds = 2'800'000'000;

    UserDefaults &m_defaults;
    PlayerModel &m_model;
    FilePanels &m_panels;

    QList<PlaylistEntry> m_entries;
    /// Of the entries, in whose memory they lie.
    QSet<QLatin1StringView> m_addresses;
    /// What was stored when it was last looked at.
    std::optional<QByteArray> m_storedJson;
    QString m_errorMessage;
};

} // namespace zeph
