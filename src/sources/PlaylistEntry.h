// One playable item of a list.
#pragma once

#include "sources/AddressText.h"

#include <QString>
#include <QUuid>

#include <optional>

namespace zeph {

/// A channel or video. Two entries are equal only when their ids are, too.
///
/// Lists may hold a million of these. An entry is one pointer to one block of memory, which its
/// copies share and which never changes; texts are made of it when they are asked for.
class PlaylistEntry {
public:
    struct Fields {
        QUuid id;
        QString name;
        /// Absolute.
        AddressText url;
        std::optional<AddressText> logoURL;
        /// Copies of one QString stay copies of it: entries of the same group share its text.
        std::optional<QString> groupTitle;
        /// As a list or the user gave it: mostly two letters.
        std::optional<QString> countryCode;
    };

    /// The same as Fields, in UTF-8 and without copies: for who reads a great many.
    struct Utf8Fields {
        QUuid id;
        QByteArrayView name;
        QByteArrayView url;
        std::optional<QByteArrayView> logoURL;
        std::optional<QString> groupTitle;
        std::optional<QByteArrayView> countryCode;
    };

    /// An entry without anything, to be assigned to.
    PlaylistEntry() = default;
    explicit PlaylistEntry(const Fields &fields);
    /// The texts are valid UTF-8, and those of the addresses were checked. None is larger than
    /// 4 GiB.
    explicit PlaylistEntry(const Utf8Fields &fields);
    PlaylistEntry(const PlaylistEntry &other);
    PlaylistEntry(PlaylistEntry &&other) noexcept;
    PlaylistEntry &operator=(const PlaylistEntry &other);
    PlaylistEntry &operator=(PlaylistEntry &&other) noexcept;
    ~PlaylistEntry();

    QUuid id() const;
    QString name() const;
    QUrl url() const;
    std::optional<QUrl> logoURL() const;
    std::optional<QString> groupTitle() const;
    std::optional<QString> countryCode() const;

    /// The text of url(), as it was read. Lives as long as this entry.
    QLatin1StringView address() const;
    /// The text of logoURL(), or empty. Lives as long as this entry.
    QLatin1StringView logoAddress() const;
    /// Those of the same names, without copies, for who reads a great many. They live as long as
    /// this entry.
    QByteArrayView nameUtf8() const;
    std::optional<QByteArrayView> countryCodeUtf8() const;
    /// Null when there is none. Titles of one group may share their text.
    const QString *sharedGroupTitle() const;

    friend bool operator==(const PlaylistEntry &left, const PlaylistEntry &right);
    friend size_t qHash(const PlaylistEntry &entry, size_t seed);

private:
    struct Block;

    Block *m_block = nullptr;
};

size_t qHash(const PlaylistEntry &entry, size_t seed = 0);

} // namespace zeph

Q_DECLARE_TYPEINFO(zeph::PlaylistEntry, Q_RELOCATABLE_TYPE);
