#include "platform/CertificateAuthorities.h"

#include <QFile>

namespace zeph {

QByteArray certificateAuthorityFile()
{
    return qgetenv("SSL_CERT_FILE");
}

const QList<QSslCertificate> &certificateAuthorities()
{
    static QByteArray readFile;
    static QList<QSslCertificate> certificates;
    if (const QByteArray file = certificateAuthorityFile(); file != readFile) {
        certificates = QSslCertificate::fromPath(QFile::decodeName(file));
        readFile = file;
    }
    return certificates;
}

} // namespace zeph
