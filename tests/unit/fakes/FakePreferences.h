#pragma once

#include "fakes/HandlerList.h"
#include "platform/Preferences.h"

#include <QList>
#include <QPair>

#include <algorithm>
#include <map>
#include <utility>

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
        return store();
    }

    bool removeValue(const QString &key) override
    {
        m_values.erase(key);
        m_writes.append({key, QVariant()});
        return store();
    }

    void refresh() override
    {
        if (const auto elsewhere = std::exchange(m_elsewhere, {}); !elsewhere.empty()) {
            for (const auto &[key, value] : elsewhere)
                m_values[key] = value;
            m_refreshHandlers.call();
        }
    }
    platform::Subscription onRefresh(std::function<void()> handler) override
    {
        return m_refreshHandlers.add(std::move(handler));
    }
    void setMerge(Merge merge) override { m_merge = std::move(merge); }
    SaveProblem saveProblem() const override { return m_problem; }
    bool save() override { return m_problem == SaveProblem::None || store(); }
    platform::Subscription onSaveProblem(std::function<void()> handler) override
    {
        return m_problemHandlers.add(std::move(handler));
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
    void setFailing(bool failing) { setFailing(failing ? SaveProblem::Other : SaveProblem::None); }
    void setFailing(SaveProblem problem) { m_failing = problem; }

    /// Another process stores the value; the next refresh() finds it.
    void storeElsewhere(const QString &key, const QVariant &value) { m_elsewhere[key] = value; }
    /// What was handed to setMerge(); empty if nothing was.
    const Merge &merge() const { return m_merge; }

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
    bool store()
    {
        const SaveProblem before = std::exchange(m_problem, m_failing);
        if (m_problem != before)
            m_problemHandlers.call();
        return m_problem == SaveProblem::None;
    }

    std::map<QString, QVariant> m_elsewhere;
    SaveProblem m_failing = SaveProblem::None;
    SaveProblem m_problem = SaveProblem::None;
    Merge m_merge;
    HandlerList<> m_refreshHandlers;
    HandlerList<> m_problemHandlers;
};

} // namespace hmatnik::test
