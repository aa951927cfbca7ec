#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>

#include <memory>
#include <optional>

namespace hmatnik::platform {

/// A dictionary in property-list form, kept as the library's own tree, so that values of types
/// that the program does not use (dates, unique ids) survive being read and written again.
class PropertyList
{
public:
    /// An empty dictionary.
    PropertyList();
    ~PropertyList();
    PropertyList(PropertyList &&) noexcept;
    PropertyList &operator=(PropertyList &&) noexcept;

    /// Reads the XML form. None if the text is not a whole, well-formed property list in UTF-8,
    /// if its root is no dictionary, or if it nests deeper than 64 levels.
    static std::optional<PropertyList> fromXml(const QByteArray &xml);

    /// The XML form, in UTF-8; empty if it does not fit the library's bounds (4 GiB).
    QByteArray toXml() const;

    /// The value under the key: bool, qint64, double, QString, QByteArray, QVariantList or
    /// QVariantMap; an invalid QVariant if there is none or it is of another type. An integer
    /// beyond qint64 is of another type.
    QVariant value(const QString &key) const;

    /// Stores a value of one of the types that value() lists, at every level, exactly as it is;
    /// false, and nothing stored, for any other, for numbers that are not finite and for values
    /// nested deeper than 64 levels.
    bool setValue(const QString &key, const QVariant &value);

    bool contains(const QString &key) const;

    /// Takes the key and its value away; harmless if there is no such key.
    void remove(const QString &key);

    /// Makes the key stand for what it stands for in the other list: the same value, or none.
    void copyEntry(const QString &key, const PropertyList &other);

private:
    struct Free
    {
        void operator()(void *node) const;
    };
    using Node = std::unique_ptr<void, Free>;

    explicit PropertyList(Node root);

    Node m_root;
};

} // namespace hmatnik::platform
