// The text of a list, decoded.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace zeph {

/// Text that is known to be valid UTF-8.
class PlaylistText {
public:
    /// Decodes what a file or a server gave: UTF-8, or else ISO Latin-1, which takes anything.
    /// UTF-8 costs no copy.
    static PlaylistText fromBytes(const QByteArray &bytes);
    /// Half a surrogate pair becomes a replacement character.
    static PlaylistText fromString(QStringView text);

    QByteArrayView utf8() const { return m_utf8; }

private:
    explicit PlaylistText(QByteArray utf8);

    QByteArray m_utf8;
};

} // namespace zeph
