#pragma once

#include "platform/Preferences.h"

#include <QList>
#include <QPair>

#include <algorithm>
#include <map>

namespace hmatnik::test {

/// Preferences in memory that remember what was written.
class FakePreferences final : public platform::Preferences
{
public:
    using Write = QPair<QString, QVariant>;

    QVariant value(const QString &key) const override
    {
        const auto found = m_values.find(key);
        return found == m_values.end() ? QVariant() : found->second;
    }

    bool setValue(const QString &key, const QVariant &value) override
    {
        if (!isStorable(value))
            return false;
        m_values[key] = value;
        m_writes.append({key, value});
        return !m_failing;
    }

    bool removeValue(const QString &key) override
    {
        m_values.erase(key);
        m_writes.append({key, QVariant()});
        return !m_failing;
    }

    /// Puts a value there as an earlier run would have left it, of any type, unrecorded.
    void preset(const QString &key, const QVariant &value) { m_values[key] = value; }

    /// Every accepted setValue() in order, those that reported failure included; a removal is a
    /// write of an invalid QVariant.
    const QList<Write> &writes() const { return m_writes; }
    void clearWrites() { m_writes.clear(); }
    /// The keys of writes(), in order.
    QStringList writtenKeys() const
    {
        QStringList keys;
        for (const Write &write : m_writes)
            keys.append(write.first);
        return keys;
    }

    /// From now on (or no longer) values only live in memory and setValue() reports failure.
    void setFailing(bool failing) { m_failing = failing; }

    /// Whether the value is of one of the types that preferences may hold.
    static bool isStorable(const QVariant &value)
    {
        switch (value.typeId()) {
        case QMetaType::Bool:
        case QMetaType::LongLong:
        case QMetaType::Double:
        case QMetaType::QString:
        case QMetaType::QByteArray:
            return true;
        case QMetaType::QVariantList: {
            const QVariantList list = value.toList();
            return std::all_of(list.begin(), list.end(), isStorable);
        }
        case QMetaType::QVariantMap: {
            const QVariantMap map = value.toMap();
            return std::all_of(map.begin(), map.end(), isStorable);
        }
        default:
            return false;
        }
    }

private:
    std::map<QString, QVariant> m_values;
    QList<Write> m_writes;
    bool m_failing = false;
};

} // namespace hmatnik::test
