#pragma once

#include "update/ManifestSource.h"

#include <QList>
#include <QSslCertificate>
#include <QString>
#include <QTimer>
#include <QUrl>

#include <chrono>
#include <memory>

class QNetworkAccessManager;
class QNetworkReply;

namespace hmatnik {

/// Fetches the version manifest with one HTTPS GET.
///
/// Every hop is encrypted and its certificate checked: a redirect to plain HTTP fails, and so does
/// everything that takes too long or sends too much. The network stack lives from fetch() to the
/// answer only.
class ManifestDownload final : public ManifestSource
{
public:
    struct Options
    {
        /// Host, or host:port, that serves the manifest.
        QString host;
        /// Authorities to trust; empty means the system's.
        QList<QSslCertificate> certificateAuthorities;
        /// How long the server may be silent.
        std::chrono::milliseconds idleTimeout = std::chrono::seconds(30);
        /// How long the whole transfer may take, redirects included.
        std::chrono::milliseconds totalTimeout = std::chrono::seconds(60);
    };

    explicit ManifestDownload(Options options);
    ~ManifestDownload() override;

    void fetch(Handler handler) override;

    /// https://HOST/downloads/hmatnik/version.json. A host that makes no address is an error of
    /// whoever built the program, and fatal.
    static QUrl address(const QString &host);

private:
    void request(const QUrl &url);
    void takeHeaders();
    void takeBody();
    void takeEnd();
    void dropTransfer();
    void finish(const std::optional<QByteArray> &body);

    const Options m_options;
    Handler m_handler;
    QByteArray m_body;
    int m_redirects = 0;
    QTimer m_deadline;
    std::unique_ptr<QNetworkAccessManager> m_manager;
    QNetworkReply *m_reply = nullptr;
};

} // namespace hmatnik
