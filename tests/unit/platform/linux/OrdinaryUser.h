#pragma once

#include <QByteArray>
#include <QString>

#include <fcntl.h>
#include <sys/types.h>
#include <unistd.h>

namespace hmatnik::test {

/// For its lifetime the process has no more rights than an ordinary user, even when the tests run
/// as root: root may read and write what permissions deny to others.
class OrdinaryUser
{
public:
    /// @param folder is given to that user.
    explicit OrdinaryUser(const QString &folder)
    {
        if (::geteuid() != 0)
            return;
        m_wasRoot = ::chown(folder.toUtf8().constData(), nobody, nobody) == 0 &&
                    ::setegid(nobody) == 0 && ::seteuid(nobody) == 0;
    }
    ~OrdinaryUser()
    {
        if (m_wasRoot && ::seteuid(0) == 0)
            m_wasRoot = ::setegid(0) != 0;
    }
    OrdinaryUser(const OrdinaryUser &) = delete;
    OrdinaryUser &operator=(const OrdinaryUser &) = delete;

    /// True if permissions now mean something.
    bool isInForce() const { return ::geteuid() != 0; }

private:
    static constexpr uid_t nobody = 65534;
    bool m_wasRoot = false;
};

} // namespace hmatnik::test
