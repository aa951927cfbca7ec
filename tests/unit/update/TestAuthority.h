#pragma once

#include <QSslCertificate>
#include <QSslKey>
#include <QString>
#include <QTemporaryDir>

namespace hmatnik::test {

/// A certificate authority made on the spot with the openssl command.
class TestAuthority
{
public:
    struct Identity
    {
        QSslCertificate certificate;
        QSslKey key;
    };

    TestAuthority();

    /// The authority's own certificate, for those who are to trust it.
    QSslCertificate certificate() const { return m_certificate; }
    QString certificateFile() const { return m_directory.filePath(QStringLiteral("ca.pem")); }

    /// A server's certificate; valid since yesterday at the latest.
    /// @param names as openssl writes them, "DNS:localhost,IP:127.0.0.1".
    /// @param days until it expires; negative if it has expired.
    Identity issue(const QString &names, int days = 2);

private:
    void openssl(const QStringList &arguments) const;
    void write(const QString &name, const QByteArray &text) const;
    QByteArray read(const QString &name) const;

    QTemporaryDir m_directory;
    QSslCertificate m_certificate;
    int m_issued = 0;
};

} // namespace hmatnik::test
