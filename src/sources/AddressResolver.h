// Resolves the addresses of a list against the address of the list itself.
#pragma once

#include "sources/AddressReader.h"
#include "sources/AddressText.h"

namespace zeph {

class AddressResolver {
public:
    /// With a `base` that is not absolute, only absolute addresses are resolved.
    explicit AddressResolver(const AddressText &base);

    /// The absolute form of an address (RFC 3986, section 5.2), or nothing when `utf8`, which is
    /// valid UTF-8, is no address. Lives as long as that text, and until the next resolve().
    std::optional<QByteArrayView> resolve(QByteArrayView utf8);

private:
    AddressText m_base;
    AddressReader m_reader;
    QByteArray m_resolved;
};

} // namespace zeph
