#pragma once

#include <QByteArray>
#include <QString>

#include <chrono>
#include <optional>

namespace hmatnik::platform {

/// One file that is replaced as a whole: whoever reads it sees the old contents or the new ones,
/// and after a successful write the new ones stay, even if the machine loses power. A symbolic
/// link is followed, so that the file may live elsewhere.
class DurableFile
{
public:
    enum class Status {
        /// The contents were read.
        Read,
        /// There is no such file yet; its folder may be missing too.
        Missing,
        /// Something stands there that can't be read as a file, or is larger than the limit.
        Unreadable,
        /// The system is short of something at the moment; asking later may help.
        Unavailable,
    };
    struct Contents
    {
        Status status = Status::Missing;
        QByteArray bytes;
    };

    /// Keeps everybody else out who asks for it, until it goes or the process ends, however it
    /// ends. Where the file system can't lock, or its folder can't be written, it keeps nobody out.
    class Lock
    {
    public:
        explicit Lock(int descriptor);
        Lock(Lock &&other) noexcept;
        Lock(const Lock &) = delete;
        Lock &operator=(const Lock &) = delete;
        Lock &operator=(Lock &&) = delete;
        ~Lock();

    private:
        int m_descriptor;
    };

    explicit DurableFile(const QString &path);

    /// Asks for the file's one lock, which readers don't need: they see a whole file at any time.
    /// It is a hidden file beside this one that stays there, because whoever removed it could take
    /// it away from somebody who waits for it. Creates missing folders.
    /// @param patience how long to wait for somebody else who has it.
    /// @return none if somebody else still has it then.
    [[nodiscard]] std::optional<Lock> lock(std::chrono::milliseconds patience) const;

    /// Reads the file; never waits for anybody, whatever stands under the name.
    /// @param limit largest size that is read, in bytes.
    Contents read(qint64 limit) const;

    /// Replaces the contents, readable for the owner only, and creates missing folders. Gives 0,
    /// or the system's error number if any step failed, that of reaching the disk included; the
    /// old contents then still stand, unless only the very last step failed.
    [[nodiscard]] int write(const QByteArray &bytes) const;

    /// Stores the bytes in a new file beside it, under an unused name. False if that could not be
    /// done.
    bool keepBeside(const QByteArray &bytes) const;

    /// Gives what stands under the name a new, unused name beside it, whatever it is. False if
    /// that could not be done.
    bool moveAside() const;

    /// Removes what writes that were killed half-way left behind.
    void removeLeftovers() const;

private:
    QByteArray m_path;
};

} // namespace hmatnik::platform
