#pragma once

#include "platform/Preferences.h"
#include "platform/linux/DurableFile.h"
#include "platform/linux/HandlerList.h"
#include "platform/linux/PropertyList.h"

#include <QSet>

#include <cstddef>
#include <optional>
#include <utility>

namespace hmatnik::platform {

/// Preferences in one XML property list.
///
/// A change goes onto what is on the disk at that moment, behind a lock, so that processes with the
/// same home lose nothing of each other's. A file that holds no property list with a dictionary at
/// its root is moved aside under a new name, and the preferences start empty. What can neither be
/// read nor moved is never replaced: values then live in memory, and each change tries again. If
/// values that were changed meanwhile turn out to have stood there as well, a copy of the old file
/// is kept beside it before anything is written. Main thread only.
class PropertyListPreferences final : public Preferences
{
public:
    explicit PropertyListPreferences(const QString &path = defaultPath());

    /// $XDG_CONFIG_HOME/hmatnik/cz.hmatnik.Hmatnik.plist
    static QString defaultPath();

    QVariant value(const QString &key) const override;
    bool setValue(const QString &key, const QVariant &value) override;
    bool removeValue(const QString &key) override;
    void refresh() override;
    Subscription onRefresh(std::function<void()> handler) override;
    void setMerge(Merge merge) override;
    SaveProblem saveProblem() const override { return m_problem; }
    bool save() override;
    Subscription onSaveProblem(std::function<void()> handler) override;

private:
    /// What stands on the disk.
    enum class Found {
        /// What m_list has taken up, or nothing at all.
        Taken,
        /// No property list of ours.
        Damaged,
        /// It can't be read now.
        Unavailable,
    };
    /// Tells contents apart; two different ones are taken for the same once in 2^64 times.
    using Fingerprint = std::pair<qsizetype, std::size_t>;

    static Fingerprint fingerprintOf(const QByteArray &bytes);
    Found takeUp();
    bool mergeUnseen(const PropertyList &stored, const QByteArray &bytes);
    bool store();
    SaveProblem write();
    void tellNews();

    DurableFile m_file;
    PropertyList m_list;
    /// The keys of changes, removals included, that are not on disk.
    QSet<QString> m_changed;
    /// Of what m_list has last taken up or written.
    std::optional<Fingerprint> m_known;
    /// False until it is known what stood on the disk when the program started.
    bool m_wasSeen = false;
    /// m_list has taken up what nobody was told of yet.
    bool m_hasNews = false;
    /// Another process kept the lock for longer than we wait; it is not waited for again until it
    /// has let go.
    bool m_isLockStuck = false;
    SaveProblem m_problem = SaveProblem::None;
    Merge m_merge;
    HandlerList<> m_refreshHandlers;
    HandlerList<> m_problemHandlers;
};

} // namespace hmatnik::platform
