#include "update/VersionManifest.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace hmatnik {

std::optional<VersionManifest> VersionManifest::decode(const QByteArray &json)
{
    const QJsonObject object = QJsonDocument::fromJson(json).object();
    const QJsonValue version = object.value("version"_L1);
    const QJsonValue url = object.value("url"_L1);
    const QJsonValue notes = object.value("notes"_L1);
    const bool hasNotes = !notes.isUndefined() && !notes.isNull();
    if (!version.isString() || !url.isString() || (hasNotes && !notes.isString()))
        return std::nullopt;

    VersionManifest manifest{version.toString(), url.toString(), std::nullopt};
    if (hasNotes)
        manifest.notes = notes.toString();
    return manifest;
}

} // namespace hmatnik
