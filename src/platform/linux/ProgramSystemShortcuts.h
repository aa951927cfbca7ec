#pragma once

#include "platform/SystemShortcuts.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QStringList>

#include <chrono>
#include <functional>
#include <memory>

class QProcess;

namespace hmatnik::platform {

/// Has the desktop's settings read by a program of its own, hmatnik-desktop-shortcuts. The process
/// goes when it has answered, when it takes too long, and with this object. Main thread only.
class ProgramSystemShortcuts final : public SystemShortcuts
{
public:
    /// How long the program may take; the settings services that it asks are local.
    static constexpr std::chrono::milliseconds answerTimeout{10000};
    /// The program's arguments, which are the desktop as it knows it; none if it is not known.
    using Arguments = std::function<QStringList()>;

    /// @param arguments asked for anew each time: at login a window manager can come after us.
    ProgramSystemShortcuts(
        const QString &program, Arguments arguments,
        std::chrono::milliseconds timeout = answerTimeout);
    ~ProgramSystemShortcuts() override;

    /// For the desktop that this process runs on, as its environment names it.
    /// @param windowManager tells its name, which counts where there is no desktop; may be empty.
    static std::unique_ptr<ProgramSystemShortcuts>
    forThisDesktop(const std::function<QString()> &windowManager);

    /// The program that is built and installed together with the one in the directory, which is
    /// this one's: beside it in a build directory, in libexec once installed.
    static QString
    installedProgram(const QString &directory = QCoreApplication::applicationDirPath());

    Availability availability() const override;
    void read(Handler handler) override;

private:
    void end();
    void finish(bool succeeded);

    const QString m_program;
    const Arguments m_arguments;
    const std::chrono::milliseconds m_timeout;
    Handler m_handler;
    std::unique_ptr<QProcess> m_process;
};

} // namespace hmatnik::platform
