#pragma once

#include "platform/Appearance.h"
#include "platform/linux/HandlerList.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QObject>
#include <QString>
#include <QVariant>

#include <optional>

namespace hmatnik::platform {

/// The desktop's choices as its settings portal tells them (org.freedesktop.portal.Settings):
/// "color-scheme", "contrast" and "reduced-motion" of org.freedesktop.appearance; where the desktop
/// does not know the last two, "high-contrast" of org.gnome.desktop.a11y.interface and
/// "enable-animations" of org.gnome.desktop.interface. Main thread only.
class PortalAppearance final : public QObject, public Appearance
{
    Q_OBJECT

public:
    /// Asks a portal that is already running and waits for it, a tenth of a second at most, so that
    /// the first picture has the right colours; one that has yet to start answers later.
    explicit PortalAppearance(const QDBusConnection &bus = QDBusConnection::sessionBus());

    ColorScheme colorScheme() const override { return m_colorScheme; }
    bool reducedMotion() const override;
    bool highContrast() const override;
    Subscription onChange(std::function<void()> handler) override;

private:
    Q_SLOT void takeChange(const QString &group, const QString &key, const QDBusVariant &value);
    void askNow();
    void askLater();
    void take(const QString &group, const QString &key, const QVariant &value);

    QDBusConnection m_bus;
    QDBusServiceWatcher m_watcher;
    ColorScheme m_colorScheme = ColorScheme::NoPreference;
    std::optional<bool> m_reducedMotion;
    std::optional<bool> m_animations;
    std::optional<bool> m_contrast;
    std::optional<bool> m_accessibleTheme;
    HandlerList<> m_handlers;
};

} // namespace hmatnik::platform
