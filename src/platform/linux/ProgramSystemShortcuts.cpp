#include "platform/linux/ProgramSystemShortcuts.h"

#include "platform/linux/shortcuts/ShortcutStore.h"
#include "platform/linux/shortcuts/ShortcutsJson.h"

#include <QFileInfo>
#include <QProcess>
#include <QTimer>

#include <sys/prctl.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <utility>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

ProgramSystemShortcuts::ProgramSystemShortcuts(
    const QString &program, Arguments arguments, std::chrono::milliseconds timeout)
    : m_program(program)
    , m_arguments(std::move(arguments))
    , m_timeout(timeout)
{
}

ProgramSystemShortcuts::~ProgramSystemShortcuts()
{
    end();
}

std::unique_ptr<ProgramSystemShortcuts>
ProgramSystemShortcuts::forThisDesktop(const std::function<QString()> &windowManager)
{
    return std::make_unique<ProgramSystemShortcuts>(installedProgram(), [windowManager] {
        const auto store =
            shortcutStore(qEnvironmentVariable("XDG_CURRENT_DESKTOP"), windowManager());
        return store ? QStringList{nameOf(*store)} : QStringList();
    });
}

QString ProgramSystemShortcuts::installedProgram(const QString &directory)
{
    const QString beside = directory + u"/hmatnik-desktop-shortcuts"_s;
    return QFileInfo::exists(beside)
               ? beside
               : directory + u"/" HMATNIK_LIBEXEC_FROM_BIN "/hmatnik-desktop-shortcuts"_s;
}

Availability ProgramSystemShortcuts::availability() const
{
    if (!m_arguments().isEmpty())
        return Availability::yes();
    return Availability::no(u"Nastavení zkratek této plochy Hmatník nezná."_s);
}

void ProgramSystemShortcuts::read(Handler handler)
{
    end();
    m_handler = std::move(handler);
    m_process = std::make_unique<QProcess>();
    m_process->setProgram(m_program);
    m_process->setArguments(m_arguments());
    m_process->setStandardInputFile(QProcess::nullDevice());
    m_process->setStandardErrorFile(QProcess::nullDevice());
    m_process->setChildProcessModifier([parent = getpid()] {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        // It is sent for a death from now on; this is for one before.
        if (getppid() != parent)
            _exit(EXIT_FAILURE);
    });
    QProcess *process = m_process.get();
    QObject::connect(process, &QProcess::readyReadStandardOutput, process, [process] {
        if (process->bytesAvailable() > ShortcutsJson::longestText)
            process->kill();
    });
    QObject::connect(
        process, &QProcess::finished, process, [this](int code, QProcess::ExitStatus status) {
            finish(status == QProcess::NormalExit && code == 0);
        });
    // Queued, because a program that is not there can be reported from within start().
    QObject::connect(
        process, &QProcess::errorOccurred, process,
        [this](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart)
                finish(false);
        },
        Qt::QueuedConnection);
    QTimer::singleShot(m_timeout, process, [process] { process->kill(); });
    process->start(QIODevice::ReadOnly);
}

void ProgramSystemShortcuts::end()
{
    if (!m_process)
        return;
    m_process->disconnect();
    m_process->kill();
    m_process->waitForFinished();
    m_process.reset();
}

void ProgramSystemShortcuts::finish(bool succeeded)
{
    const QByteArray output = m_process->readAllStandardOutput();
    const Handler handler = std::exchange(m_handler, {});
    // We stand in a signal of the process, so it goes when that has returned.
    m_process->disconnect();
    m_process.release()->deleteLater();
    handler(succeeded ? ShortcutsJson::fromJson(output) : std::nullopt);
}

} // namespace hmatnik::platform
