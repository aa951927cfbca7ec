#include "platform/linux/shortcuts/SettingsFile.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace hmatnik::platform {

QStringList settingsFiles(const QString &name)
{
    return QStandardPaths::locateAll(QStandardPaths::GenericConfigLocation, name);
}

std::optional<QByteArray> readBounded(const QString &path)
{
    QFile file(path);
    // A pipe would keep us waiting.
    if (!QFileInfo(path).isFile() || file.size() > largestSettingsFile ||
        !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return file.read(largestSettingsFile);
}

std::optional<QByteArray> readSettingsFile(const QString &name)
{
    const QStringList paths = settingsFiles(name);
    for (const QString &path : paths) {
        if (auto text = readBounded(path))
            return text;
    }
    return std::nullopt;
}

} // namespace hmatnik::platform
