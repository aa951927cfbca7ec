#include "platform/linux/shortcuts/ShortcutsJson.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

namespace {

const auto idMember = u"id"_s;
const auto titleMember = u"title"_s;
const auto keysMember = u"keys"_s;
const auto kindMember = u"kind"_s;
const auto desktopMember = u"desktop"_s;

constexpr int kinds = 5;

QString boundedTitle(const QString &title)
{
    QString line = title.simplified();
    line.removeIf([](QChar c) { return !c.isPrint() && !c.isSurrogate(); });
    if (line.size() <= ShortcutsJson::longestTitle)
        return line;
    line.truncate(ShortcutsJson::longestTitle);
    if (line.back().isHighSurrogate())
        line.chop(1);
    return line;
}

std::optional<SystemShortcut> shortcutOf(const QJsonObject &object)
{
    const QJsonValue kind = object.value(kindMember);
    const QJsonValue keys = object.value(keysMember);
    SystemShortcut shortcut{
        .actionId = object.value(idMember).toString(),
        .title = object.value(titleMember).toString(),
        .keys = {},
        .kind = static_cast<SystemShortcut::Kind>(std::clamp(kind.toInt(), 0, kinds - 1)),
        .desktop = object.value(desktopMember).toString()};
    const QJsonArray tokens = keys.toArray();
    for (const auto &token : tokens)
        shortcut.keys.append(token.toString());
    const bool isWhole = !shortcut.actionId.isEmpty() && !shortcut.title.isEmpty() &&
                         !shortcut.keys.isEmpty() && !shortcut.keys.contains(QString()) &&
                         !shortcut.desktop.isEmpty() && kind.toInt(-1) == int(shortcut.kind);
    return isWhole ? std::optional(shortcut) : std::nullopt;
}

} // namespace

QByteArray ShortcutsJson::toJson(const QList<SystemShortcut> &shortcuts)
{
    QJsonArray array;
    for (const SystemShortcut &shortcut : shortcuts) {
        const QString title = boundedTitle(shortcut.title);
        if (title.isEmpty() || shortcut.keys.isEmpty() ||
            shortcut.actionId.size() > longestActionId)
            continue;
        if (array.size() == mostShortcuts)
            break;
        array.append(QJsonObject{
            {idMember, shortcut.actionId},
            {titleMember, title},
            {keysMember, QJsonArray::fromStringList(shortcut.keys)},
            {kindMember, int(shortcut.kind)},
            {desktopMember, shortcut.desktop}});
    }
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

SystemShortcuts::Result ShortcutsJson::fromJson(const QByteArray &json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isArray() || json.size() > longestText)
        return std::nullopt;
    QList<SystemShortcut> shortcuts;
    const QJsonArray array = document.array();
    for (const auto &value : array) {
        const auto shortcut = shortcutOf(value.toObject());
        if (!shortcut)
            return std::nullopt;
        shortcuts.append(*shortcut);
    }
    return shortcuts;
}

} // namespace hmatnik::platform
