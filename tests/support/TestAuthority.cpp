#include "support/TestAuthority.h"

#include <QHostAddress>
#include <QProcess>

namespace zeph {

namespace {

void openssl(const QStringList &arguments)
{
    QProcess process;
    process.start(QStringLiteral("openssl"), arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        qFatal("openssl: %s", process.readAllStandardError().constData());
}

// A new key, and a certificate for it that is valid for a day.
QStringList newCertificate(
    const QString &name, const QString &keyFile, const QString &certificateFile)
{
    return { QStringLiteral("req"), QStringLiteral("-x509"), QStringLiteral("-newkey"),
        QStringLiteral("ec"), QStringLiteral("-pkeyopt"),
        QStringLiteral("ec_paramgen_curve:prime256v1"), QStringLiteral("-nodes"),
        QStringLiteral("-days"), QStringLiteral("1"), QStringLiteral("-subj"),
        QStringLiteral("/CN=") + name, QStringLiteral("-keyout"), keyFile, QStringLiteral("-out"),
        certificateFile };
}

QString alternativeName(const QString &host)
{
    const bool isAddress = !QHostAddress(host).isNull();
    return (isAddress ? QStringLiteral("IP:") : QStringLiteral("DNS:")) + host;
}

} // namespace

TestAuthority::TestAuthority()
{
    openssl(newCertificate(QStringLiteral("Test authority"),
        m_folder.filePath(QStringLiteral("authority.key")), certificateFile()));
}

QString TestAuthority::certificateFile() const
{
    return m_folder.filePath(QStringLiteral("authority.pem"));
}

ServerCertificate TestAuthority::certify(const QString &hostName)
{
    ServerCertificate server { m_folder.filePath(hostName + QStringLiteral(".pem")),
        m_folder.filePath(hostName + QStringLiteral(".key")) };
    openssl(newCertificate(hostName, server.keyFile, server.certificateFile)
        << QStringLiteral("-CA") << certificateFile() << QStringLiteral("-CAkey")
        << m_folder.filePath(QStringLiteral("authority.key")) << QStringLiteral("-addext")
        << QStringLiteral("subjectAltName=") + alternativeName(hostName)
        << QStringLiteral("-addext") << QStringLiteral("basicConstraints=critical,CA:FALSE"));
    return server;
}

} // namespace zeph
