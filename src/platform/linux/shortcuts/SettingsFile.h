#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace hmatnik::platform {

/// Largest settings file of a desktop that is read, in bytes.
constexpr qint64 largestSettingsFile = qint64{8} * 1024 * 1024;

/// The files of that name below the folders of settings, the person's own first.
QStringList settingsFiles(const QString &name);

/// What is in a file; none if it is no ordinary file, can't be read or is too large.
std::optional<QByteArray> readBounded(const QString &path);

/// The first of settingsFiles() that can be read.
std::optional<QByteArray> readSettingsFile(const QString &name);

} // namespace hmatnik::platform
