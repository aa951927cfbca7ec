#include "model/Shortcut.h"

#include <QHashFunctions>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>

using namespace Qt::StringLiterals;

namespace hmatnik {

namespace {

std::optional<QString> stringMember(const QJsonObject &object, QLatin1StringView name)
{
    const QJsonValue value = object.value(name);
    if (!value.isString())
        return std::nullopt;
    return value.toString();
}

std::optional<QStringList> stringListMember(const QJsonObject &object, QLatin1StringView name)
{
    const QJsonValue value = object.value(name);
    if (!value.isArray())
        return std::nullopt;
    QStringList strings;
    const QJsonArray array = value.toArray();
    strings.reserve(array.size());
    for (const QJsonValue element : array) {
        if (!element.isString())
            return std::nullopt;
        strings.append(element.toString());
    }
    return strings;
}

std::optional<Shortcut> shortcutFromJson(const QJsonValue &value)
{
    if (!value.isObject())
        return std::nullopt;
    const QJsonObject object = value.toObject();
    auto id = stringMember(object, "id"_L1);
    auto title = stringMember(object, "title"_L1);
    auto keys = stringListMember(object, "keys"_L1);
    const auto categoryName = stringMember(object, "category"_L1);
    auto apps = stringListMember(object, "apps"_L1);
    auto detail = stringMember(object, "detail"_L1);
    if (!id || !title || !keys || !categoryName || !apps || !detail)
        return std::nullopt;
    const auto category = Shortcut::categoryFromRawValue(*categoryName);
    if (!category)
        return std::nullopt;
    return Shortcut{
        .id = *std::move(id),
        .title = *std::move(title),
        .keys = *std::move(keys),
        .category = *category,
        .apps = *std::move(apps),
        .detail = *std::move(detail),
    };
}

} // namespace

QString Shortcut::rawValue(Category category)
{
    switch (category) {
    case Category::zaklady:
        return u"Základy"_s;
    case Category::text:
        return u"Text"_s;
    case Category::okna:
        return u"Okna a aplikace"_s;
    case Category::finder:
        return u"Finder"_s;
    case Category::snimky:
        return u"Snímky obrazovky"_s;
    case Category::prohlizec:
        return u"Prohlížeč"_s;
    }
    Q_UNREACHABLE();
    return {};
}

std::optional<Shortcut::Category> Shortcut::categoryFromRawValue(const QString &rawValue)
{
    for (const Category category : allCategories) {
        if (rawValue == Shortcut::rawValue(category))
            return category;
    }
    return std::nullopt;
}

QString Shortcut::symbol(Category category)
{
    switch (category) {
    case Category::zaklady:
        return u"sparkles"_s;
    case Category::text:
        return u"text.cursor"_s;
    case Category::okna:
        return u"macwindow.on.rectangle"_s;
    case Category::finder:
        return u"folder"_s;
    case Category::snimky:
        return u"camera.viewfinder"_s;
    case Category::prohlizec:
        return u"globe"_s;
    }
    Q_UNREACHABLE();
    return {};
}

QStringList Shortcut::keysFromText(const QString &text)
{
    QStringList keys;
    for (const QStringView piece : QStringView(text).split(u'+')) {
        const QStringView trimmed = piece.trimmed();
        if (!trimmed.isEmpty())
            keys.append(trimmed.toString());
    }
    return keys;
}

QByteArray Shortcut::toJson(const QList<Shortcut> &shortcuts)
{
    QJsonArray array;
    for (const Shortcut &shortcut : shortcuts) {
        array.append(QJsonObject{
            {u"id"_s, shortcut.id},
            {u"title"_s, shortcut.title},
            {u"keys"_s, QJsonArray::fromStringList(shortcut.keys)},
            {u"category"_s, rawValue(shortcut.category)},
            {u"apps"_s, QJsonArray::fromStringList(shortcut.apps)},
            {u"detail"_s, shortcut.detail},
        });
    }
    // A reader may take this character at the start of a text for a byte order mark and drop it.
    return QJsonDocument(array).toJson(QJsonDocument::Compact).replace("\xEF\xBB\xBF", "\\ufeff");
}

std::optional<QList<Shortcut>> Shortcut::fromJson(const QByteArray &json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isArray())
        return std::nullopt;
    const QJsonArray array = document.array();
    QList<Shortcut> shortcuts;
    shortcuts.reserve(array.size());
    for (const QJsonValue element : array) {
        auto shortcut = shortcutFromJson(element);
        if (!shortcut)
            return std::nullopt;
        shortcuts.append(*std::move(shortcut));
    }
    return shortcuts;
}

size_t qHash(const Shortcut &shortcut, size_t seed) noexcept
{
    seed = qHashMulti(seed, shortcut.id, shortcut.title, shortcut.keys.size());
    seed = qHashRange(shortcut.keys.begin(), shortcut.keys.end(), seed);
    seed = qHashMulti(seed, Shortcut::rawValue(shortcut.category), shortcut.apps.size());
    seed = qHashRange(shortcut.apps.begin(), shortcut.apps.end(), seed);
    return qHashMulti(seed, shortcut.detail);
}

} // namespace hmatnik
