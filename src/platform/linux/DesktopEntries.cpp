#include "platform/linux/DesktopEntries.h"

#include "platform/linux/TextBeginning.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QStandardPaths>

#include <glib.h>

#include <algorithm>
#include <memory>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

namespace {

constexpr int maximumFolderDepth = 8;
constexpr qsizetype maximumEntries = 20000;
constexpr qint64 maximumFileSize = 1024LL * 1024;
constexpr qsizetype maximumNameLength = 256;

/// The value of a key of the file's main group, as it stands there. Only looks at the bytes:
/// parsing every entry of a desktop just to find one would be felt at start-up.
QByteArray rawValue(const QByteArray &file, QByteArrayView key)
{
    const qsizetype group = file.indexOf("[Desktop Entry]");
    if (group < 0)
        return {};
    const qsizetype end = file.indexOf("\n[", group);
    for (qsizetype at = file.indexOf('\n', group); at >= 0 && (end < 0 || at < end);
         at = file.indexOf('\n', at + 1)) {
        if (!QByteArrayView(file).sliced(at + 1).startsWith(key))
            continue;
        qsizetype value = at + 1 + key.size();
        while (value < file.size() && file[value] == ' ')
            ++value;
        if (value >= file.size() || file[value] != '=')
            continue;
        const qsizetype lineEnd = file.indexOf('\n', value);
        return file.mid(value + 1, lineEnd < 0 ? -1 : lineEnd - value - 1).trimmed();
    }
    return {};
}

QByteArray read(const QByteArray &path)
{
    QFile file(QFile::decodeName(path));
    const QFileInfo info(file);
    if (!info.isFile() || info.size() > maximumFileSize || !file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

std::optional<QString> localizedName(const QByteArray &path)
{
    const QByteArray bytes = read(path);
    const std::unique_ptr<GKeyFile, decltype(&g_key_file_unref)> file(
        g_key_file_new(), &g_key_file_unref);
    if (!g_key_file_load_from_data(
            file.get(), bytes.constData(), static_cast<gsize>(bytes.size()), G_KEY_FILE_NONE,
            nullptr))
        return std::nullopt;
    const std::unique_ptr<char, decltype(&g_free)> name(
        g_key_file_get_locale_string(
            file.get(), G_KEY_FILE_DESKTOP_GROUP, G_KEY_FILE_DESKTOP_KEY_NAME, nullptr, nullptr),
        &g_free);
    if (!name)
        return std::nullopt;
    const QString text = beginning(QString::fromUtf8(name.get()).simplified(), maximumNameLength);
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

QString lastPart(const QString &id)
{
    return id.mid(id.lastIndexOf(u'.') + 1);
}

} // namespace

DesktopEntries::DesktopEntries(const QStringList &folders)
    : m_folders(folders)
{
}

QStringList DesktopEntries::standardFolders()
{
    QStringList folders;
    for (const QString &folder :
         QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation))
        folders.append(folder + u"/applications"_s);
    return folders;
}

std::optional<QString> DesktopEntries::nameFor(const WindowIdentity &window)
{
    refresh();
    const QByteArray key =
        (window.windowClass + u'\n' + window.instance + u'\n' + window.applicationId).toUtf8();
    if (const auto known = m_names.constFind(key); known != m_names.constEnd())
        return *known;
    const Entry *entry = find(window);
    auto name = entry ? localizedName(entry->path) : std::nullopt;
    m_names.insert(key, name);
    return name;
}

void DesktopEntries::refresh()
{
    const bool isCurrent =
        m_isRead && std::all_of(m_folderTimes.keyBegin(), m_folderTimes.keyEnd(), [this](auto &f) {
            return QFileInfo(f).lastModified() == m_folderTimes.value(f);
        });
    if (isCurrent)
        return;
    m_isRead = true;
    m_entries.clear();
    m_folderTimes.clear();
    m_names.clear();
    for (const QString &folder : std::as_const(m_folders))
        readFolder(folder, {}, 0);
    // The same id further down the list of folders is the same application, overridden.
    QSet<QString> seen;
    m_entries.removeIf([&seen](const Entry &entry) {
        const bool isRepeated = seen.contains(entry.id);
        seen.insert(entry.id);
        return isRepeated;
    });
}

/// @param prefix what the path below the applications folder adds to the id
void DesktopEntries::readFolder( // NOLINT(misc-no-recursion): depth is bounded
    const QString &folder, const QString &prefix, int depth)
{
    m_folderTimes.insert(folder, QFileInfo(folder).lastModified());
    const QFileInfoList files =
        QDir(folder).entryInfoList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    for (const QFileInfo &file : files) {
        if (m_entries.size() >= maximumEntries)
            return;
        const QString name = file.fileName();
        if (file.isDir()) {
            if (depth < maximumFolderDepth)
                readFolder(file.filePath(), prefix + name + u'-', depth + 1);
        } else if (name.endsWith(u".desktop")) {
            const QByteArray path = QFile::encodeName(file.filePath());
            const QByteArray bytes = read(path);
            m_entries.append(
                {.id = prefix + name.chopped(8),
                 .path = path,
                 .windowClass = QString::fromUtf8(rawValue(bytes, "StartupWMClass")),
                 .isShown = rawValue(bytes, "NoDisplay") != "true" &&
                            rawValue(bytes, "Hidden") != "true"});
        }
    }
}

const DesktopEntries::Entry *DesktopEntries::find(const WindowIdentity &window) const
{
    const auto first = [this](const auto &fits) -> const Entry * {
        const Entry *hidden = nullptr;
        for (const Entry &entry : m_entries) {
            if (!fits(entry))
                continue;
            if (entry.isShown)
                return &entry;
            if (!hidden)
                hidden = &entry;
        }
        return hidden;
    };
    const QStringList names{window.windowClass, window.instance};
    for (const QString &name : names) {
        if (name.isEmpty())
            continue;
        if (const auto *entry = first([&](const Entry &e) { return e.windowClass == name; }))
            return entry;
    }
    for (const Qt::CaseSensitivity sensitivity : {Qt::CaseSensitive, Qt::CaseInsensitive}) {
        for (const QString &name : names) {
            if (name.isEmpty())
                continue;
            if (const auto *entry =
                    first([&](const Entry &e) { return e.id.compare(name, sensitivity) == 0; }))
                return entry;
        }
    }
    if (!window.applicationId.isEmpty()) {
        if (const auto *entry = first([&](const Entry &e) { return e.id == window.applicationId; }))
            return entry;
    }
    for (const QString &name : names) {
        if (name.isEmpty())
            continue;
        if (const auto *entry = first([&](const Entry &e) {
                return lastPart(e.id).compare(name, Qt::CaseInsensitive) == 0;
            }))
            return entry;
    }
    return nullptr;
}

} // namespace hmatnik::platform
