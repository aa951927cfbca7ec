#include "update/ManifestProgram.h"

#include <QFileInfo>
#include <QProcess>

#include <unistd.h>

#include <csignal>
#include <utility>
#ifdef Q_OS_LINUX
#include <sys/prctl.h>
#endif

using namespace Qt::StringLiterals;

namespace hmatnik {

namespace {

/// Runs in the new process, before the program.
void yieldToParent()
{
    // Start-up, with the first frame to draw, is when we run; the answer is in no hurry.
    [[maybe_unused]] const int niceness = nice(10);
#ifdef Q_OS_LINUX
    prctl(PR_SET_PDEATHSIG, SIGKILL);
#endif
}

} // namespace

ManifestProgram::ManifestProgram(const QString &program, const QStringList &arguments)
    : m_program(program)
    , m_arguments(arguments)
{
}

ManifestProgram::~ManifestProgram()
{
    if (m_process) {
        m_process->disconnect();
        m_process->kill();
        m_process->waitForFinished();
    }
}

QString ManifestProgram::installedProgram(const QString &directory)
{
    const QString beside = directory + u"/hmatnik-fetch-manifest"_s;
    return QFileInfo::exists(beside)
               ? beside
               : directory + u"/" HMATNIK_LIBEXEC_FROM_BIN "/hmatnik-fetch-manifest"_s;
}

void ManifestProgram::fetch(Handler handler)
{
    m_handler = std::move(handler);
    m_output.clear();
    m_process = std::make_unique<QProcess>();
    m_process->setProgram(m_program);
    m_process->setArguments(m_arguments);
    m_process->setStandardInputFile(QProcess::nullDevice());
    m_process->setStandardErrorFile(QProcess::nullDevice());
    m_process->setChildProcessModifier(yieldToParent);
    QObject::connect(m_process.get(), &QProcess::readyReadStandardOutput, m_process.get(), [this] {
        takeOutput();
    });
    QObject::connect(
        m_process.get(), &QProcess::finished, m_process.get(),
        [this](int code, QProcess::ExitStatus status) {
            takeOutput();
            finish(status == QProcess::NormalExit && code == 0);
        });
    // Queued, because a program that is not there can be reported from within start().
    QObject::connect(
        m_process.get(), &QProcess::errorOccurred, m_process.get(),
        [this](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart)
                finish(false);
        },
        Qt::QueuedConnection);
    m_process->start(QIODevice::ReadOnly);
}

void ManifestProgram::takeOutput()
{
    m_output += m_process->readAllStandardOutput();
    if (m_output.size() > maximumSize)
        m_process->kill();
}

void ManifestProgram::finish(bool succeeded)
{
    const bool complete = succeeded && m_output.size() <= maximumSize;
    const QByteArray output = std::exchange(m_output, {});
    const Handler handler = std::exchange(m_handler, {});

    // We stand in a signal of the process, so it goes when that has returned.
    m_process->disconnect();
    m_process.release()->deleteLater();
    handler(complete ? std::optional(output) : std::nullopt);
}

} // namespace hmatnik
