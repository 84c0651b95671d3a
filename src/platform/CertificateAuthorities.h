// Whose certificates are trusted.
#pragma once

#include <QByteArray>

namespace zeph {

/// The file of the authorities that the user trusts in place of the system's: the one that
/// SSL_CERT_FILE names, as for other programs. Empty when the system's are trusted. Any thread.
QByteArray certificateAuthorityFile();

} // namespace zeph
