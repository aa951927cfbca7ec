#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace hmatnik {

/// What the maker publishes about the newest version.
struct VersionManifest
{
    /// The newest published version, dotted numbers such as "1.2.0"; may be any text.
    QString version;
    /// Where it can be downloaded; any text, so check it before use.
    QString url;
    /// A short plain text about the new version.
    std::optional<QString> notes;

    /// Reads a JSON object with the strings "version" and "url" and, optionally, "notes" (a string
    /// or null). Other members are ignored. None if the text is no such object.
    static std::optional<VersionManifest> decode(const QByteArray &json);

    bool operator==(const VersionManifest &) const = default;
};

} // namespace hmatnik
