// Fetches the version manifest on the program's behalf. The network and encryption libraries cannot
// be unloaded once used, and a program that waits in the tray all day should not carry them for one
// request; here they go with the process.

#include "update/fetch/PrintManifest.h"

#include <QCoreApplication>
#include <QNetworkProxyFactory>

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QNetworkProxyFactory::setUseSystemConfiguration(true);
    hmatnik::ManifestDownload::Options options;
    options.host = QStringLiteral(HMATNIK_DOWNLOAD_HOST);
    hmatnik::printManifest(options);
}
