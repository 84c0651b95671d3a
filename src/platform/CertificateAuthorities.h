// Whose certificates are trusted.
#pragma once

#include <QByteArray>
#include <QList>
#include <QSslCertificate>

namespace zeph {

/// The file of the authorities that the user trusts in place of the system's: the one that
/// SSL_CERT_FILE names, as for other programs. Empty when the system's are trusted. Any thread.
QByteArray certificateAuthorityFile();

/// The certificates in that file, which is read once: reading a whole system's takes longer than
/// most downloads. Main thread only.
const QList<QSslCertificate> &certificateAuthorities();

} // namespace zeph
