#pragma once

#include "update/ManifestSource.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <memory>

class QProcess;

namespace hmatnik {

/// Has the manifest fetched by a program of its own, which writes it to its standard output and
/// exits with status 0. The process goes with the source, and with this program.
class ManifestProgram final : public ManifestSource
{
public:
    explicit ManifestProgram(const QString &program, const QStringList &arguments = {});
    ~ManifestProgram() override;

    void fetch(Handler handler) override;

    /// The program that is built and installed together with the one in the directory, which is
    /// this one's: beside it in a build directory, in libexec once installed.
    static QString
    installedProgram(const QString &directory = QCoreApplication::applicationDirPath());

private:
    void takeOutput();
    void finish(bool succeeded);

    const QString m_program;
    const QStringList m_arguments;
    Handler m_handler;
    QByteArray m_output;
    std::unique_ptr<QProcess> m_process;
};

} // namespace hmatnik
