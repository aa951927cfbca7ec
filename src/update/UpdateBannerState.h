#pragma once

#include "platform/UrlOpener.h"
#include "update/UpdateChecker.h"

#include <QObject>
#include <QString>

#include <memory>

namespace hmatnik {

/// What the update banner shows and does. Keeps nothing itself: everything is the checker's.
/// Whether the banner shows at all is UpdateChecker::isUpdateAvailable().
class UpdateBannerState final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString headline READ headline NOTIFY changed)
    Q_PROPERTY(QString detail READ detail NOTIFY changed)
    Q_PROPERTY(bool canDownload READ canDownload NOTIFY changed)

public:
    /// @param checker outlives this object.
    /// @param urlOpener never null.
    UpdateBannerState(
        UpdateChecker *checker, std::shared_ptr<platform::UrlOpener> urlOpener,
        QObject *parent = nullptr);

    /// Names the new version. Plain text of any length and of any characters, as the server gave
    /// it.
    QString headline() const;
    /// What the new version brings or, without such notes, how to install it. As plain and as long.
    QString detail() const;
    /// Whether there is an address to open.
    bool canDownload() const;

    /// Dismisses the version for good.
    Q_INVOKABLE void skip();
    /// Opens the download's page in the person's browser; without an address, nothing.
    Q_INVOKABLE void download();

Q_SIGNALS:
    void changed();

private:
    UpdateChecker *const m_checker;
    const std::shared_ptr<platform::UrlOpener> m_urlOpener;
};

} // namespace hmatnik
