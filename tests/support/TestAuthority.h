// Certificates for test servers.
#pragma once

#include "support/TestServer.h"

#include <QTemporaryDir>

namespace zeph {

/// A certificate authority of its own, made anew, as certificates run out. Main thread only.
class TestAuthority {
public:
    TestAuthority();

    /// The authority's own certificate, for those who are to trust it.
    QString certificateFile() const;
    /// A server certificate for a host name, signed by this authority. The files live as long as
    /// it.
    ServerCertificate certify(const QString &hostName);

private:
    QTemporaryDir m_folder;
};

} // namespace zeph
