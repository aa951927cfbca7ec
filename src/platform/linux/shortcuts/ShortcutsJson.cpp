#include "platform/linux/shortcuts/ShortcutsJson.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

namespace {

const auto shortcutsMember = u"shortcuts"_s;
const auto withoutKeysMember = u"withoutKeys"_s;
const auto idMember = u"id"_s;
const auto titleMember = u"title"_s;
const auto keysMember = u"keys"_s;
const auto kindMember = u"kind"_s;
const auto desktopMember = u"desktop"_s;
const auto othersMember = u"others"_s;

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

QJsonArray arrayOf(const QList<QStringList> &keys)
{
    QJsonArray array;
    for (const QStringList &tokens :
         keys.first(std::min(keys.size(), ShortcutsJson::mostOtherKeys)))
        array.append(QJsonArray::fromStringList(tokens));
    return array;
}

/// No tokens if one is none.
QStringList tokensOf(const QJsonValue &value)
{
    QStringList tokens;
    const QJsonArray array = value.toArray();
    for (const auto &token : array)
        tokens.append(token.toString());
    return tokens.contains(QString()) ? QStringList() : tokens;
}

std::optional<SystemShortcut> shortcutOf(const QJsonObject &object)
{
    const QJsonValue kind = object.value(kindMember);
    SystemShortcut shortcut{
        .actionId = object.value(idMember).toString(),
        .title = object.value(titleMember).toString(),
        .keys = tokensOf(object.value(keysMember)),
        .kind = static_cast<SystemShortcut::Kind>(std::clamp(kind.toInt(), 0, kinds - 1)),
        .desktop = object.value(desktopMember).toString()};
    const QJsonArray others = object.value(othersMember).toArray();
    for (const auto &keys : others)
        shortcut.otherKeys.append(tokensOf(keys));
    const bool isWhole = !shortcut.actionId.isEmpty() && !shortcut.title.isEmpty() &&
                         !shortcut.keys.isEmpty() && !shortcut.otherKeys.contains(QStringList()) &&
                         !shortcut.desktop.isEmpty() && kind.toInt(-1) == int(shortcut.kind);
    return isWhole ? std::optional(shortcut) : std::nullopt;
}

} // namespace

QByteArray ShortcutsJson::toJson(const SystemShortcutSettings &settings)
{
    QJsonArray shortcuts;
    for (const SystemShortcut &shortcut : settings.shortcuts) {
        const QString title = boundedTitle(shortcut.title);
        if (title.isEmpty() || shortcut.keys.isEmpty() ||
            shortcut.actionId.size() > longestActionId)
            continue;
        if (shortcuts.size() == mostShortcuts)
            break;
        shortcuts.append(QJsonObject{
            {idMember, shortcut.actionId},
            {titleMember, title},
            {keysMember, QJsonArray::fromStringList(shortcut.keys)},
            {kindMember, int(shortcut.kind)},
            {desktopMember, shortcut.desktop},
            {othersMember, arrayOf(shortcut.otherKeys)}});
    }
    QJsonArray withoutKeys;
    for (const QString &actionId : settings.withoutKeys) {
        if (actionId.size() <= longestActionId && withoutKeys.size() < mostShortcuts)
            withoutKeys.append(actionId);
    }
    const QJsonObject object{{shortcutsMember, shortcuts}, {withoutKeysMember, withoutKeys}};
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

SystemShortcuts::Result ShortcutsJson::fromJson(const QByteArray &json)
{
    if (json.size() > longestText)
        return std::nullopt;
    const QJsonObject object = QJsonDocument::fromJson(json).object();
    const QJsonValue shortcuts = object.value(shortcutsMember);
    const QJsonValue withoutKeys = object.value(withoutKeysMember);
    if (!shortcuts.isArray() || !withoutKeys.isArray())
        return std::nullopt;
    SystemShortcutSettings settings;
    const QJsonArray array = shortcuts.toArray();
    for (const auto &value : array) {
        const auto shortcut = shortcutOf(value.toObject());
        if (!shortcut)
            return std::nullopt;
        settings.shortcuts.append(*shortcut);
    }
    const QJsonArray actionIds = withoutKeys.toArray();
    for (const auto &value : actionIds) {
        const QString actionId = value.toString();
        if (actionId.isEmpty())
            return std::nullopt;
        settings.withoutKeys.append(actionId);
    }
    return settings;
}

} // namespace hmatnik::platform
