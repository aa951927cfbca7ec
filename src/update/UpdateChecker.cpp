#include "update/UpdateChecker.h"

#include "platform/UrlOpener.h"

#include <QList>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <utility>

using namespace Qt::StringLiterals;

namespace hmatnik {

namespace {

QString dismissedVersionKey()
{
    return u"Hmatnik.dismissedUpdateVersion"_s;
}

std::optional<QString> storedDismissedVersion(const platform::Preferences &preferences)
{
    const QVariant stored = preferences.value(dismissedVersionKey());
    return stored.typeId() == QMetaType::QString ? std::optional(stored.toString()) : std::nullopt;
}

std::optional<std::int64_t> integer(QStringView piece)
{
    if (piece.startsWith(u'+') && !piece.startsWith(u"+-"))
        piece = piece.sliced(1);
    const QByteArray digits = piece.toLatin1(); // what is not Latin-1 becomes '?', no digit either
    std::int64_t value = 0;
    const char *const end = digits.constData() + digits.size();
    const auto [rest, error] = std::from_chars(digits.constData(), end, value);
    return error == std::errc() && rest == end ? std::optional(value) : std::nullopt;
}

QList<std::int64_t> integers(QStringView version)
{
    QList<std::int64_t> result;
    for (const QStringView piece : version.tokenize(u'.')) {
        if (const auto value = integer(piece))
            result.append(*value);
    }
    return result;
}

QVariant toVariant(const std::optional<QString> &text)
{
    return text ? QVariant(*text) : QVariant::fromValue(nullptr);
}

/// True if the field had another value before.
template <typename T>
bool assign(T &field, const T &value)
{
    const bool differs = field != value;
    field = value;
    return differs;
}

std::optional<QUrl> webAddress(const QString &text)
{
    const QUrl url(text, QUrl::StrictMode);
    return platform::UrlOpener::isWebAddress(url) ? std::optional(url) : std::nullopt;
}

} // namespace

UpdateChecker::UpdateChecker(
    std::shared_ptr<platform::Preferences> preferences, std::unique_ptr<ManifestSource> source,
    const QString &currentVersion, QObject *parent)
    : QObject(parent)
    , m_preferences(std::move(preferences))
    , m_source(std::move(source))
    , m_currentVersion(currentVersion)
{
    setDismissedVersion(storedDismissedVersion(*m_preferences));
    m_storedElsewhere = m_preferences->onRefresh(
        [this] { takeDismissedVersion(storedDismissedVersion(*m_preferences)); });
}

UpdateChecker::~UpdateChecker() = default;

QString UpdateChecker::builtVersion()
{
    const QString version = QStringLiteral(HMATNIK_VERSION);
    return version.isEmpty() ? u"1.0"_s : version;
}

bool UpdateChecker::isNewer(QStringView a, QStringView b)
{
    const QList<std::int64_t> left = integers(a);
    const QList<std::int64_t> right = integers(b);
    for (qsizetype i = 0; i < std::max(left.size(), right.size()); ++i) {
        const std::int64_t ours = left.value(i, 0);
        const std::int64_t theirs = right.value(i, 0);
        if (ours != theirs)
            return ours > theirs;
    }
    return false;
}

bool UpdateChecker::isUpdateAvailable() const
{
    return m_latestVersion && m_latestVersion != m_dismissedVersion &&
           isNewer(*m_latestVersion, m_currentVersion);
}

void UpdateChecker::setDismissedVersion(const std::optional<QString> &version)
{
    if (version)
        m_preferences->setValue(dismissedVersionKey(), *version);
    else
        m_preferences->removeValue(dismissedVersionKey());
    takeDismissedVersion(version);
}

void UpdateChecker::takeDismissedVersion(const std::optional<QString> &version)
{
    if (m_dismissedVersion == version)
        return;
    const bool wasAvailable = isUpdateAvailable();
    m_dismissedVersion = version;
    Q_EMIT dismissedVersionChanged();
    if (isUpdateAvailable() != wasAvailable)
        Q_EMIT isUpdateAvailableChanged();
}

void UpdateChecker::checkForUpdate()
{
    if (std::exchange(m_checking, true))
        return;
    m_source->fetch([this](const std::optional<QByteArray> &body) {
        m_checking = false;
        if (body) {
            if (const auto manifest = VersionManifest::decode(*body))
                apply(*manifest);
        }
        Q_EMIT checkFinished();
    });
}

void UpdateChecker::apply(const VersionManifest &manifest)
{
    const bool wasAvailable = isUpdateAvailable();
    // All fields first: who hears of one change reads the others too.
    const bool versionChanged = assign(m_latestVersion, std::optional(manifest.version));
    const bool addressChanged = assign(m_downloadURL, webAddress(manifest.url));
    const bool notesDiffer = assign(m_notes, manifest.notes);
    if (versionChanged)
        Q_EMIT latestVersionChanged();
    if (addressChanged)
        Q_EMIT downloadURLChanged();
    if (notesDiffer)
        Q_EMIT notesChanged();
    if (isUpdateAvailable() != wasAvailable)
        Q_EMIT isUpdateAvailableChanged();
}

QVariant UpdateChecker::latestVersionVariant() const
{
    return toVariant(m_latestVersion);
}

QVariant UpdateChecker::notesVariant() const
{
    return toVariant(m_notes);
}

QVariant UpdateChecker::dismissedVersionVariant() const
{
    return toVariant(m_dismissedVersion);
}

} // namespace hmatnik
