#include "platform/CertificateAuthorities.h"

namespace zeph {

QByteArray certificateAuthorityFile()
{
    return qgetenv("SSL_CERT_FILE");
}

} // namespace zeph
