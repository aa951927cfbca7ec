#pragma once

#include "platform/Preferences.h"
#include "update/ManifestSource.h"
#include "update/VersionManifest.h"

#include <QObject>
#include <QString>
#include <QStringView>
#include <QUrl>
#include <QVariant>

#include <memory>
#include <optional>

namespace hmatnik {

/// Knows whether a newer version has been published, and which one the person does not want to
/// hear of. Nothing is ever downloaded but the manifest. Lives on the main thread.
class UpdateChecker final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool isUpdateAvailable READ isUpdateAvailable NOTIFY isUpdateAvailableChanged)
    Q_PROPERTY(QString currentVersion READ currentVersion CONSTANT)
    // To QML, what is missing is null.
    Q_PROPERTY(QVariant latestVersion READ latestVersionVariant NOTIFY latestVersionChanged)
    Q_PROPERTY(QUrl downloadURL READ downloadURLOrEmpty NOTIFY downloadURLChanged)
    Q_PROPERTY(QVariant notes READ notesVariant NOTIFY notesChanged)
    Q_PROPERTY(
        QVariant dismissedVersion READ dismissedVersionVariant NOTIFY dismissedVersionChanged)

public:
    /// @param preferences keeps the dismissed version; never null.
    /// @param source fetches the manifest; never null.
    /// @param currentVersion the running program's version.
    UpdateChecker(
        std::shared_ptr<platform::Preferences> preferences, std::unique_ptr<ManifestSource> source,
        const QString &currentVersion = builtVersion(), QObject *parent = nullptr);
    ~UpdateChecker() override;

    /// The version this program was built as; "1.0" if the build named none.
    static QString builtVersion();

    /// True if version a is newer than version b: both are read as integers between dots and
    /// compared place by place, a missing place counting as 0. Pieces that are no decimal integer
    /// of 64 bits are left out, and what follows them moves up, so "1.x.3" is 1.3.
    static bool isNewer(QStringView a, QStringView b);

    /// True if a newer version than ours is published and the person has not dismissed that one.
    bool isUpdateAvailable() const;
    QString currentVersion() const { return m_currentVersion; }

    /// The version in the last manifest that was fetched successfully.
    const std::optional<QString> &latestVersion() const { return m_latestVersion; }
    /// The address in that manifest; none if it is not a web address.
    const std::optional<QUrl> &downloadURL() const { return m_downloadURL; }
    /// The notes in that manifest.
    const std::optional<QString> &notes() const { return m_notes; }
    /// The version that the person does not want to hear of.
    const std::optional<QString> &dismissedVersion() const { return m_dismissedVersion; }
    /// Stores the version, or forgets the stored one, at once.
    void setDismissedVersion(const std::optional<QString> &version);

    /// Fetches the manifest in the background and takes over what it says. If that fails in any
    /// way, everything stays as it is. Does nothing while a check is under way.
    void checkForUpdate();

Q_SIGNALS:
    void isUpdateAvailableChanged();
    void latestVersionChanged();
    void downloadURLChanged();
    void notesChanged();
    void dismissedVersionChanged();
    /// The check has ended, whatever came of it.
    void checkFinished();

private:
    void apply(const VersionManifest &manifest);
    /// Sets the field, which is stored already.
    void takeDismissedVersion(const std::optional<QString> &version);
    QUrl downloadURLOrEmpty() const { return m_downloadURL.value_or(QUrl()); }
    QVariant latestVersionVariant() const;
    QVariant notesVariant() const;
    QVariant dismissedVersionVariant() const;

    const std::shared_ptr<platform::Preferences> m_preferences;
    const std::unique_ptr<ManifestSource> m_source;
    const QString m_currentVersion;
    std::optional<QString> m_latestVersion;
    std::optional<QUrl> m_downloadURL;
    std::optional<QString> m_notes;
    std::optional<QString> m_dismissedVersion;
    bool m_checking = false;
    platform::Subscription m_storedElsewhere;
};

} // namespace hmatnik
