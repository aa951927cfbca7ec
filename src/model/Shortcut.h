#pragma once

#include <QByteArray>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QStringList>

#include <array>
#include <cstddef>
#include <optional>

namespace hmatnik {

/// One keyboard shortcut: a plain value. Identity is `id` alone; equality covers all six fields.
struct Shortcut
{
    /// The six categories, in the order in which sidebar and pickers list them.
    enum class Category { zaklady, text, okna, finder, snimky, prohlizec };

    static constexpr std::array allCategories{Category::zaklady, Category::text,
                                              Category::okna,    Category::finder,
                                              Category::snimky,  Category::prohlizec};

    /// Czech display name, which is also the stored form ("Okna a aplikace").
    static QString rawValue(Category category);
    /// The category whose display name is exactly the given text; none otherwise.
    static std::optional<Category> categoryFromRawValue(const QString &rawValue);
    /// Name of the category's symbol in the Mac's symbol set ("sparkles").
    static QString symbol(Category category);

    /// Stable identifier: "copy", "custom-" and a UUID, "menu-" and application, title, keys,
    /// or "system-" and the desktop's name of the action, keys.
    QString id;
    /// Czech name of the action, as shown.
    QString title;
    /// Key tokens in display order: modifiers "Fn", "⌃", "⌥", "⇧", "⌘", then the main key.
    QStringList keys;
    Category category = Category::zaklady;
    /// Names of the applications it belongs to, as the desktop reports them; empty: everywhere.
    QStringList apps;
    /// One Czech sentence that explains what the shortcut does.
    QString detail;

    /// All six fields, texts compared code point by code point.
    bool operator==(const Shortcut &other) const = default;

    /// The key tokens of a text typed by a person: split at "+", pieces trimmed of white space,
    /// empty pieces dropped, nothing else changed.
    static QStringList keysFromText(const QString &text);

    /// UTF-8 JSON array of objects with exactly the six members, in list order.
    static QByteArray toJson(const QList<Shortcut> &shortcuts);
    /// The list read back; none if the text is no JSON array of whole, well-typed records.
    /// Unknown members are ignored.
    static std::optional<QList<Shortcut>> fromJson(const QByteArray &json);
};

/// Agrees with equality: combines id, title, key count and keys, category, application count and
/// applications, detail.
size_t qHash(const Shortcut &shortcut, size_t seed = 0) noexcept;

} // namespace hmatnik

Q_DECLARE_METATYPE(hmatnik::Shortcut)
