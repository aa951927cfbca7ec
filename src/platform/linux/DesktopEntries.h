#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace hmatnik::platform {

/// The desktop entries of installed applications, which hold their names as the person knows
/// them. Folders are read when a name is first asked for, and again only after one of them has
/// changed.
class DesktopEntries
{
public:
    /// What a window tells about the application it belongs to; each may be empty.
    struct WindowIdentity
    {
        /// Both halves of WM_CLASS.
        QString windowClass;
        QString instance;
        /// Id that the toolkit gives, without ".desktop".
        QString applicationId;
    };

    /// @param folders the applications folders, the most important first.
    explicit DesktopEntries(const QStringList &folders = standardFolders());

    /// The applications folders of $XDG_DATA_HOME and $XDG_DATA_DIRS.
    static QStringList standardFolders();

    /// The name, in the person's language, of the entry that fits the window best: by its
    /// StartupWMClass, else by its id, exactly or but for case, else by the last part of its id.
    /// None if there is no such entry or it has no name.
    std::optional<QString> nameFor(const WindowIdentity &window);

private:
    struct Entry
    {
        QString id;
        QByteArray path;
        QString windowClass;
        bool isShown = true;
    };

    void refresh();
    void readFolder(const QString &folder, const QString &prefix, int depth);
    const Entry *find(const WindowIdentity &window) const;

    QStringList m_folders;
    QList<Entry> m_entries;
    /// Modification time of every folder read; invalid for one that was not there.
    QHash<QString, QDateTime> m_folderTimes;
    bool m_isRead = false;
    QHash<QByteArray, std::optional<QString>> m_names;
};

} // namespace hmatnik::platform
