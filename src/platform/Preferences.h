#pragma once

#include <QString>
#include <QVariant>

namespace hmatnik::platform {

/// The person's preferences: typed values under string keys.
///
/// Types are kept exactly. A value is a QVariant that holds one of: bool, qint64 (LongLong),
/// double, QString, QByteArray, QVariantList, QVariantMap (the last two of such values again).
class Preferences
{
public:
    virtual ~Preferences() = default;

    /// The value stored under the key; an invalid QVariant if there is none.
    virtual QVariant value(const QString &key) const = 0;

    /// Stores the value at once: when the call returns true, the value is on disk and stays there
    /// whatever happens to the program or the machine. Returns false if it could not be written;
    /// the value then lives on in memory and goes to disk with the next change that can be
    /// written. An invalid QVariant, or one of a type not listed above, is refused.
    virtual bool setValue(const QString &key, const QVariant &value) = 0;

    /// Takes the key and its value away, as durably as setValue() stores, and with the same
    /// meaning of the result. True if there was no such key.
    virtual bool removeValue(const QString &key) = 0;
};

} // namespace hmatnik::platform
