#include "update/fetch/ManifestDownload.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSslConfiguration>

#include <utility>

using namespace Qt::StringLiterals;

namespace hmatnik {

namespace {

constexpr int maximumRedirects = 10;

int statusOf(const QNetworkReply &reply)
{
    return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

/// Where the answer sends us, if it does and the way there is encrypted.
std::optional<QUrl> redirectTarget(const QNetworkReply &reply)
{
    const QUrl target = reply.attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    if (target.isEmpty())
        return std::nullopt;
    QUrl url = reply.url().resolved(target);
    const bool safe = url.isValid() && url.scheme() == "https"_L1 && !url.host().isEmpty();
    return safe ? std::optional(std::move(url)) : std::nullopt;
}

} // namespace

ManifestDownload::ManifestDownload(Options options)
    : m_options(std::move(options))
{
    m_deadline.setSingleShot(true);
    m_deadline.setInterval(m_options.totalTimeout);
    QObject::connect(&m_deadline, &QTimer::timeout, &m_deadline, [this] { finish(std::nullopt); });
}

ManifestDownload::~ManifestDownload()
{
    dropTransfer();
}

QUrl ManifestDownload::address(const QString &host)
{
    QUrl url(u"https://"_s + host + u"/downloads/hmatnik/version.json"_s, QUrl::StrictMode);
    if (!url.isValid() || url.host().isEmpty() ||
        url.path() != "/downloads/hmatnik/version.json"_L1)
        qFatal("the download host makes no address");
    return url;
}

void ManifestDownload::fetch(Handler handler)
{
    m_handler = std::move(handler);
    m_redirects = 0;
    m_deadline.start();
    request(address(m_options.host));
}

void ManifestDownload::request(const QUrl &url)
{
    m_body.clear();
    m_manager = std::make_unique<QNetworkAccessManager>();

    QNetworkRequest request(url);
    // Left to Qt 6.4, a redirect now and then has the first request sent twice.
    request.setAttribute(
        QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
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
    const QObject *const context = &m_deadline;
    QObject::connect(m_reply, &QNetworkReply::metaDataChanged, context, [this] { takeHeaders(); });
    QObject::connect(m_reply, &QIODevice::readyRead, context, [this] { takeBody(); });
    QObject::connect(m_reply, &QNetworkReply::finished, context, [this] { takeEnd(); });
}

void ManifestDownload::takeHeaders()
{
    const auto target = redirectTarget(*m_reply);
    if (target && m_redirects++ < maximumRedirects) {
        dropTransfer();
        request(*target);
    } else if (statusOf(*m_reply) != 200) {
        finish(std::nullopt);
    }
}

void ManifestDownload::takeBody()
{
    m_body += m_reply->read(maximumSize + 1 - m_body.size());
    if (m_body.size() > maximumSize)
        finish(std::nullopt);
}

void ManifestDownload::takeEnd()
{
    const bool succeeded = m_reply->error() == QNetworkReply::NoError && statusOf(*m_reply) == 200;
    if (succeeded)
        m_body += m_reply->read(maximumSize + 1 - m_body.size());
    finish(
        succeeded && m_body.size() <= maximumSize ? std::optional(std::move(m_body))
                                                  : std::nullopt);
}

void ManifestDownload::dropTransfer()
{
    if (!m_reply)
        return;
    // We may stand in a signal of the reply, so it and its manager go when that has returned.
    m_reply->disconnect();
    m_reply = nullptr;
    m_manager.release()->deleteLater();
}

void ManifestDownload::finish(const std::optional<QByteArray> &body)
{
    m_deadline.stop();
    dropTransfer();
    m_body.clear();
    const Handler handler = std::exchange(m_handler, {});
    handler(body);
}

} // namespace hmatnik
