#include "update/TestAuthority.h"

#include <QDateTime>
#include <QFile>
#include <QProcess>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace hmatnik::test {

namespace {

// What `openssl ca` can't be told by an argument. Of all that issues certificates it is the one
// that takes both ends of their validity, in every version; others begin it now, and refuse an end
// before.
const QByteArray settings = R"([ca]
default_ca = authority
[authority]
database = issued
new_certs_dir = .
rand_serial = yes
unique_subject = no
default_md = sha256
policy = names
[names]
commonName = supplied
)";

QString daysFromNow(int days)
{
    return QDateTime::currentDateTimeUtc().addDays(days).toString(u"yyyyMMddHHmmss'Z'"_s);
}

} // namespace

TestAuthority::TestAuthority()
{
    write(u"settings"_s, settings);
    write(u"issued"_s, {});
    openssl(
        {u"req"_s, u"-x509"_s, u"-newkey"_s, u"ec"_s, u"-pkeyopt"_s, u"ec_paramgen_curve:P-256"_s,
         u"-nodes"_s, u"-keyout"_s, u"ca.key"_s, u"-out"_s, u"ca.pem"_s, u"-days"_s, u"2"_s,
         u"-subj"_s, u"/CN=Test authority"_s});
    m_certificate = QSslCertificate(read(u"ca.pem"_s));
}

TestAuthority::Identity TestAuthority::issue(const QString &names, int days)
{
    const QString name = u"server%1"_s.arg(++m_issued);
    write(name + u".ext"_s, "subjectAltName=" + names.toLatin1() + '\n');

    openssl(
        {u"req"_s, u"-new"_s, u"-newkey"_s, u"ec"_s, u"-pkeyopt"_s, u"ec_paramgen_curve:P-256"_s,
         u"-nodes"_s, u"-keyout"_s, name + u".key"_s, u"-out"_s, name + u".csr"_s, u"-subj"_s,
         u"/CN=Test server"_s});
    openssl(
        {u"ca"_s, u"-batch"_s, u"-notext"_s, u"-config"_s, u"settings"_s, u"-cert"_s, u"ca.pem"_s,
         u"-keyfile"_s, u"ca.key"_s, u"-extfile"_s, name + u".ext"_s, u"-startdate"_s,
         daysFromNow(std::min(0, days) - 1), u"-enddate"_s, daysFromNow(days), u"-in"_s,
         name + u".csr"_s, u"-out"_s, name + u".pem"_s});
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

void TestAuthority::write(const QString &name, const QByteArray &text) const
{
    QFile file(m_directory.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("no directory to make certificates in");
}

QByteArray TestAuthority::read(const QString &name) const
{
    QFile file(m_directory.filePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace hmatnik::test
