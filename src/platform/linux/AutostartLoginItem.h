#pragma once

#include "platform/LoginItem.h"

#include <QByteArray>

namespace hmatnik::platform {

/// The desktop entry in the person's autostart folder, which sessions start at login. Sessions
/// and their settings also switch such an entry off by keys in it; it then counts as not enabled,
/// as does one whose program is not there any more.
class AutostartLoginItem final : public LoginItem
{
public:
    /// @param path of the entry
    /// @param command what the entry starts, quoted as desktop entries ask for
    explicit AutostartLoginItem(
        const QString &path = defaultPath(), const QString &command = ownCommand());

    /// $XDG_CONFIG_HOME/autostart/cz.hmatnik.Hmatnik.desktop
    static QString defaultPath();
    /// This program, quoted.
    static QString ownCommand();
    /// A program's path as the Exec key of a desktop entry wants it.
    static QString quoted(const QString &program);

    Availability availability() const override { return Availability::yes(); }
    bool isEnabled() const override;
    std::optional<QString> setEnabled(bool enabled) override;

private:
    QString m_path;
    QString m_command;
};

} // namespace hmatnik::platform
