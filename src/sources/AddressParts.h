// The parts of an address, as RFC 3986 names them.
#pragma once

#include <QByteArrayView>

#include <optional>

namespace zeph {

/// Views into the text of an address, without the delimiters. A part may be present and empty.
struct AddressParts {
    std::optional<QByteArrayView> scheme;
    std::optional<QByteArrayView> authority;
    QByteArrayView path;
    std::optional<QByteArrayView> query;
    std::optional<QByteArrayView> fragment;
};

/// Splits any text; whether the parts are such is not checked, but that a scheme is one.
AddressParts splitAddress(QByteArrayView text);

/// The size of the scheme that `text` begins with, or 0 when it begins with none.
qsizetype schemeSize(QByteArrayView text);

/// The path without its "." and ".." segments (RFC 3986, section 5.2.4).
QByteArray withoutDotSegments(QByteArrayView path);

} // namespace zeph
