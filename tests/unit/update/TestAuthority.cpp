#include "update/TestAuthority.h"

#include <QFile>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace hmatnik::test {

TestAuthority::TestAuthority()
{
    openssl(
        {u"req"_s, u"-x509"_s, u"-newkey"_s, u"ec"_s, u"-pkeyopt"_s, u"ec_paramgen_curve:P-256"_s,
         u"-nodes"_s, u"-keyout"_s, u"ca.key"_s, u"-out"_s, u"ca.pem"_s, u"-days"_s, u"2"_s,
         u"-subj"_s, u"/CN=Test authority"_s});
    m_certificate = QSslCertificate(read(u"ca.pem"_s));
}

TestAuthority::Identity TestAuthority::issue(const QString &names, int days)
{
    const QString name = u"server%1"_s.arg(++m_issued);
    QFile extensions(m_directory.filePath(name + u".ext"_s));
    if (!extensions.open(QIODevice::WriteOnly))
        qFatal("no directory to make certificates in");
    extensions.write("subjectAltName=" + names.toLatin1() + '\n');
    extensions.close();

    openssl(
        {u"req"_s, u"-new"_s, u"-newkey"_s, u"ec"_s, u"-pkeyopt"_s, u"ec_paramgen_curve:P-256"_s,
         u"-nodes"_s, u"-keyout"_s, name + u".key"_s, u"-out"_s, name + u".csr"_s, u"-subj"_s,
         u"/CN=Test server"_s});
    openssl(
        {u"x509"_s, u"-req"_s, u"-in"_s, name + u".csr"_s, u"-CA"_s, u"ca.pem"_s, u"-CAkey"_s,
         u"ca.key"_s, u"-CAcreateserial"_s, u"-extfile"_s, name + u".ext"_s, u"-days"_s,
         QString::number(days), u"-out"_s, name + u".pem"_s});
    return {QSslCertificate(read(name + u".pem"_s)), QSslKey(read(name + u".key"_s), QSsl::Ec)};
}

void TestAuthority::openssl(const QStringList &arguments) const
{
    QProcess process;
    process.setWorkingDirectory(m_directory.path());
    process.start(u"openssl"_s, arguments);
    // Without certificates no test here means anything.
    if (!process.waitForFinished() || process.exitCode() != 0)
        qFatal("openssl failed: %s", process.readAllStandardError().constData());
}

QByteArray TestAuthority::read(const QString &name) const
{
    QFile file(m_directory.filePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace hmatnik::test
