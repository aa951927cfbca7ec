#pragma once

#include "platform/Subscription.h"

#include <QString>
#include <QVariant>

#include <functional>

namespace hmatnik::platform {

/// The person's preferences: typed values under string keys, shared by all processes of the
/// program that the person runs.
///
/// Types are kept exactly. A value is a QVariant that holds one of: bool, qint64 (LongLong),
/// double, QString, QByteArray, QVariantList, QVariantMap (the last two of such values again).
class Preferences
{
public:
    /// Why changes are not on disk.
    enum class SaveProblem {
        /// They all are.
        None,
        /// There is no room left.
        NoRoom,
        /// The file or its folder may not be written.
        NotPermitted,
        /// Another process of the program holds the file, and did not let go of it in time.
        Busy,
        /// Anything else.
        Other,
    };
    /// Gives what shall stand under a key of which there are two values.
    using Merge = std::function<QVariant(
        const QString &key, const QVariant &stored, const QVariant &changed)>;

    virtual ~Preferences() = default;

    /// The value stored under the key; an invalid QVariant if there is none.
    virtual QVariant value(const QString &key) const = 0;

    /// Stores the value at once, and no other: what other processes have stored under other keys
    /// stays. When the call returns true, the value is on disk and stays there whatever happens to
    /// the program or the machine. Returns false if it could not be written; the value then lives
    /// on in memory, goes to disk with the next change that can be written, and saveProblem()
    /// tells why, so that callers need not look at the result. An invalid QVariant, or one of a
    /// type not listed above, is refused.
    virtual bool setValue(const QString &key, const QVariant &value) = 0;

    /// Takes the key and its value away, as durably as setValue() stores, and with the same
    /// meaning of the result. True if there was no such key.
    virtual bool removeValue(const QString &key) = 0;

    /// Takes up what other processes have stored since. For whoever is about to change a value and
    /// builds on the stored one; costs a look at the file while nothing has changed.
    virtual void refresh() = 0;

    /// Calls the handler after values have changed by themselves: other processes stored them, or
    /// they could not be read before.
    virtual Subscription onRefresh(std::function<void()> handler) = 0;

    /// Has the function asked where a value was changed before the stored one could be read.
    /// Without one, the changed value counts.
    virtual void setMerge(Merge merge) = 0;

    /// Whether changes live in memory only, and why the last attempt to store them failed.
    virtual SaveProblem saveProblem() const = 0;

    /// Tries again to store what is in memory only. True if everything is on disk then.
    virtual bool save() = 0;

    /// Calls the handler after each attempt to store that changes saveProblem().
    virtual Subscription onSaveProblem(std::function<void()> handler) = 0;
};

} // namespace hmatnik::platform
