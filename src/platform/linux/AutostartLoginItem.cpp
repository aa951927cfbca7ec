#include "platform/linux/AutostartLoginItem.h"

#include "platform/linux/DurableFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QStandardPaths>

#include <glib.h>
#include <unistd.h>

#include <cerrno>
#include <memory>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

namespace {

using KeyFile = std::unique_ptr<GKeyFile, decltype(&g_key_file_unref)>;

constexpr qint64 maximumFileSize = 1024LL * 1024;

/// The value of a Boolean key of the main group; the fallback if it is missing or no Boolean.
bool flag(GKeyFile *file, const char *key, bool fallback)
{
    GError *error = nullptr;
    const gboolean value = g_key_file_get_boolean(file, G_KEY_FILE_DESKTOP_GROUP, key, &error);
    if (error) {
        g_error_free(error);
        return fallback;
    }
    return value != FALSE;
}

/// A string of the main group, its escapes undone; empty if there is none.
QByteArray string(GKeyFile *file, const char *key)
{
    char *text = g_key_file_get_string(file, G_KEY_FILE_DESKTOP_GROUP, key, nullptr);
    QByteArray value(text);
    g_free(text);
    return value;
}

bool isProgram(const QByteArray &name)
{
    char *path = name.isEmpty() ? nullptr : g_find_program_in_path(name.constData());
    const bool isThere = path != nullptr;
    g_free(path);
    return isThere;
}

/// Whether the program of a command line is there; programs are moved and removed.
bool canStart(const QByteArray &commandLine)
{
    int count = 0;
    char **words = nullptr;
    if (!g_shell_parse_argv(commandLine.constData(), &count, &words, nullptr))
        return false;
    const QByteArray program = QByteArray(words[0]).replace("%%", "%");
    g_strfreev(words);
    return isProgram(program);
}

} // namespace

AutostartLoginItem::AutostartLoginItem(const QString &path, const QString &command)
    : m_path(path)
    , m_command(command)
{
}

QString AutostartLoginItem::defaultPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           u"/autostart/cz.hmatnik.Hmatnik.desktop"_s;
}

QString AutostartLoginItem::ownCommand()
{
    return quoted(QCoreApplication::applicationFilePath());
}

QString AutostartLoginItem::quoted(const QString &program)
{
    QString text;
    for (const QChar c : program) {
        if (c == u'"' || c == u'`' || c == u'$' || c == u'\\')
            text += u'\\';
        text += c;
        if (c == u'%') // a single one would begin a field code
            text += c;
    }
    // Once for the quoting, once for the escapes of every string value.
    return u'"' + text.replace(u'\\', u"\\\\"_s) + u'"';
}

bool AutostartLoginItem::isEnabled() const
{
    const auto contents = DurableFile(m_path).read(maximumFileSize);
    if (contents.status != DurableFile::Status::Read)
        return false;
    const KeyFile file(g_key_file_new(), &g_key_file_unref);
    if (!g_key_file_load_from_data(
            file.get(), contents.bytes.constData(), static_cast<gsize>(contents.bytes.size()),
            G_KEY_FILE_NONE, nullptr))
        return false;
    const QByteArray tried = string(file.get(), G_KEY_FILE_DESKTOP_KEY_TRY_EXEC);
    return canStart(string(file.get(), G_KEY_FILE_DESKTOP_KEY_EXEC)) &&
           (tried.isEmpty() || isProgram(tried)) &&
           !flag(file.get(), G_KEY_FILE_DESKTOP_KEY_HIDDEN, false) &&
           flag(file.get(), "X-GNOME-Autostart-enabled", true) &&
           flag(file.get(), "X-MATE-Autostart-enabled", true);
}

std::optional<QString> AutostartLoginItem::setEnabled(bool enabled)
{
    if (!enabled) {
        if (::unlink(QFile::encodeName(m_path).constData()) == 0 || errno == ENOENT)
            return std::nullopt;
        return qt_error_string(errno);
    }
    const QString entry = u"[Desktop Entry]\n"
                          "Type=Application\n"
                          "Version=1.0\n"
                          "Name=Hmatník\n"
                          "Icon=cz.hmatnik.Hmatnik\n"
                          "Exec="_s +
                          m_command +
                          u"\n"
                          "X-GNOME-Autostart-enabled=true\n"_s;
    const int error = DurableFile(m_path).write(entry.toUtf8());
    return error == 0 ? std::nullopt : std::optional(qt_error_string(error));
}

} // namespace hmatnik::platform
