// Reads text as addresses, many of them in a row.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

namespace zeph {

/// Checks the text of an address and writes it in plain ASCII. AddressText tells what an address
/// is.
class AddressReader {
public:
    struct Address {
        /// Lives as long as the text it was read from, and until the next read().
        QByteArrayView text;
        /// Whether it is its own absolute form: it has a scheme and an authority and no "." or ".."
        /// segments. Others have to be looked at by somebody who cares.
        bool isResolved;
    };

    /// `utf8` is valid UTF-8. Costs no allocation when it is plain ASCII with an ordinary host.
    std::optional<Address> read(QByteArrayView utf8);

private:
    std::optional<Address> rewritten(
        QByteArrayView prefix, QByteArrayView afterSlashes, bool isResolved);

    QByteArray m_rewritten;
};

} // namespace zeph
