// Addresses as text: checked and resolved without a QUrl, which takes some twenty times as long and
// five times the memory.
#pragma once

#include <QByteArray>
#include <QLatin1String>
#include <QUrl>

#include <optional>

namespace zeph {

/// The checked text of an address. It is plain ASCII: what was written in other letters is
/// percent-encoded, or in the ASCII form of international names if it is the host.
///
/// Text is an address when it consists of the characters that addresses are made of, with
/// hexadecimal digits after each "%", and its host and port can be such; nothing is required of its
/// scheme. Relative addresses are addresses, too.
class AddressText {
public:
    /// No address at all; its text is empty.
    AddressText() = default;

    /// `text` exactly as it is, blanks included. Nothing when it is no address.
    static std::optional<AddressText> fromText(QStringView text);
    static std::optional<AddressText> fromUrl(const QUrl &url);

    QLatin1StringView text() const { return QLatin1StringView(m_text); }
    /// Whether it has a scheme.
    bool isAbsolute() const;
    /// Valid, but for the address that is none.
    QUrl toUrl() const { return QUrl::fromEncoded(m_text); }

    bool operator==(const AddressText &) const = default;
    friend size_t qHash(const AddressText &address, size_t seed = 0)
    {
        return qHash(address.m_text, seed);
    }

private:
    explicit AddressText(QByteArray text) : m_text(std::move(text)) { }

    QByteArray m_text;
};

} // namespace zeph
