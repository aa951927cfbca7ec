#pragma once

#include "platform/Preferences.h"
#include "platform/linux/DurableFile.h"
#include "platform/linux/PropertyList.h"

#include <QSet>

namespace hmatnik::platform {

/// Preferences in one XML property list.
///
/// A file that holds no property list with a dictionary at its root is moved aside under a new
/// name, and the preferences start empty. What can neither be read nor moved is never replaced:
/// values then live in memory, and each change tries again. Main thread only.
class PropertyListPreferences final : public Preferences
{
public:
    explicit PropertyListPreferences(const QString &path = defaultPath());

    /// $XDG_CONFIG_HOME/hmatnik/cz.hmatnik.Hmatnik.plist
    static QString defaultPath();

    QVariant value(const QString &key) const override;
    bool setValue(const QString &key, const QVariant &value) override;
    bool removeValue(const QString &key) override;

private:
    bool takeFile();
    bool store();

    DurableFile m_file;
    PropertyList m_list;
    /// What was taken away while the file could not be read.
    QSet<QString> m_removed;
    /// True once nothing stands under the name but what is in m_list.
    bool m_mayReplace = false;
    /// True while m_list holds changes that are not on disk.
    bool m_isDirty = false;
};

} // namespace hmatnik::platform
