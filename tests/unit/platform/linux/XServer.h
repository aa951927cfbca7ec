#pragma once

#include <QByteArray>
#include <QProcess>

#include <fcntl.h>
#include <unistd.h>

namespace hmatnik::test {

/// An X server in memory for as long as it exists, and the display of the environment meanwhile.
class XServer
{
public:
    XServer()
    {
        using namespace Qt::StringLiterals;
        int ends[2] = {-1, -1};
        if (::pipe(ends) != 0)
            return;
        ::fcntl(ends[0], F_SETFD, FD_CLOEXEC);
        m_process.setProcessChannelMode(QProcess::SeparateChannels);
        m_process.setStandardErrorFile(QProcess::nullDevice());
        m_process.start(
            u"Xvfb"_s, {u"-displayfd"_s, QString::number(ends[1]), u"-screen"_s, u"0"_s,
                        u"800x600x24"_s, u"-nolisten"_s, u"tcp"_s, u"-noreset"_s});
        m_process.waitForStarted();
        ::close(ends[1]);
        // The server writes its number once it takes connections, or closes when it gives up.
        QByteArray number;
        char digit = 0;
        while (::read(ends[0], &digit, 1) == 1 && digit != '\n')
            number += digit;
        ::close(ends[0]);
        m_previous = qgetenv("DISPLAY");
        m_isRunning = !number.isEmpty();
        if (m_isRunning)
            qputenv("DISPLAY", QByteArray(':' + number));
    }
    ~XServer()
    {
        if (m_previous.isEmpty())
            qunsetenv("DISPLAY");
        else
            qputenv("DISPLAY", m_previous);
        m_process.terminate();
        m_process.waitForFinished();
    }
    XServer(const XServer &) = delete;
    XServer &operator=(const XServer &) = delete;

    bool isRunning() const { return m_isRunning; }

private:
    QProcess m_process;
    QByteArray m_previous;
    bool m_isRunning = false;
};

} // namespace hmatnik::test
