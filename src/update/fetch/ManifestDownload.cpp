#include "update/fetch/ManifestDownload.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSslConfiguration>

#include <utility>

using namespace Qt::StringLiterals;

namespace hmatnik {

ManifestDownload::ManifestDownload(Options options)
    : m_options(std::move(options))
{
    m_deadline.setSingleShot(true);
    m_deadline.setInterval(m_options.totalTimeout);
    QObject::connect(&m_deadline, &QTimer::timeout, &m_deadline, [this] { m_reply->abort(); });
}

ManifestDownload::~ManifestDownload()
{
    if (m_reply)
        m_reply->disconnect();
}

QUrl ManifestDownload::address(const QString &host)
{
    const QUrl url(u"https://"_s + host + u"/downloads/hmatnik/version.json"_s, QUrl::StrictMode);
    if (!url.isValid() || url.host().isEmpty() ||
        url.path() != "/downloads/hmatnik/version.json"_L1)
        qFatal("the download host makes no address");
    return url;
}

void ManifestDownload::fetch(Handler handler)
{
    m_handler = std::move(handler);
    m_body.clear();
    m_manager = std::make_unique<QNetworkAccessManager>();

    QNetworkRequest request(address(m_options.host));
    request.setAttribute(
        QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setTransferTimeout(static_cast<int>(m_options.idleTimeout.count()));
    // A small answer must not unfold into a huge one.
    request.setDecompressedSafetyCheckThreshold(maximumSize);
    if (!m_options.certificateAuthorities.isEmpty()) {
        QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
        configuration.setCaCertificates(m_options.certificateAuthorities);
        request.setSslConfiguration(configuration);
    }

    m_reply = m_manager->get(request);
    // Without it, what arrives while we are busy piles up in memory.
    m_reply->setReadBufferSize(maximumSize + 1);
    QObject::connect(m_reply, &QIODevice::readyRead, &m_deadline, [this] { takeData(); });
    QObject::connect(m_reply, &QNetworkReply::finished, &m_deadline, [this] { finish(); });
    m_deadline.start();
}

void ManifestDownload::takeData()
{
    m_body += m_reply->read(maximumSize + 1 - m_body.size());
    if (m_body.size() > maximumSize)
        m_reply->abort();
}

void ManifestDownload::finish()
{
    m_deadline.stop();
    const bool succeeded =
        m_reply->error() == QNetworkReply::NoError &&
        m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() == 200;
    if (succeeded)
        m_body += m_reply->read(maximumSize + 1 - m_body.size());
    const bool complete = succeeded && m_body.size() <= maximumSize;
    const QByteArray body = std::exchange(m_body, {});
    const Handler handler = std::exchange(m_handler, {});

    // We stand in a signal of the reply, so manager and reply go when it has returned.
    m_reply = nullptr;
    m_manager.release()->deleteLater();
    handler(complete ? std::optional(body) : std::nullopt);
}

} // namespace hmatnik
