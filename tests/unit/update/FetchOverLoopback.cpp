// The program that fetches the manifest, told where from and whom to trust:
// FetchOverLoopback HOST:PORT AUTHORITY.pem

#include "update/fetch/PrintManifest.h"

#include <QCoreApplication>

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    hmatnik::ManifestDownload::Options options;
    options.host = arguments.value(1);
    options.certificateAuthorities = QSslCertificate::fromPath(arguments.value(2));
    hmatnik::printManifest(options);
}
