#include "update/ManifestProgram.h"

#include "update/LoopbackServer.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>

using namespace Qt::StringLiterals;

namespace hmatnik::test {

namespace {

class ManifestProgramTest : public testing::Test
{
protected:
    /// What the program gives; fails the test unless it answers once, and later.
    static std::optional<QByteArray> fetch(ManifestProgram &program)
    {
        int answers = 0;
        std::optional<QByteArray> result;
        program.fetch([&](const std::optional<QByteArray> &body) {
            ++answers;
            result = body;
        });
        EXPECT_EQ(answers, 0);
        EXPECT_TRUE(QTest::qWaitFor([&] { return answers > 0; }, 20'000));
        QTest::qWait(20);
        EXPECT_EQ(answers, 1);
        return result;
    }
    static std::optional<QByteArray> fetch(const QString &script)
    {
        ManifestProgram program(u"/bin/sh"_s, {u"-c"_s, script});
        return fetch(program);
    }
};

} // namespace

TEST_F(ManifestProgramTest, GivesWhatTheProgramWrites)
{
    EXPECT_EQ(fetch(u"printf '{\"a\":1}'"_s), "{\"a\":1}");
    EXPECT_EQ(fetch(u"printf a; sleep 0.1; printf b"_s), "ab");
    EXPECT_EQ(fetch(u"exit 0"_s), "");
}

TEST_F(ManifestProgramTest, GivesNothingWhenTheProgramFails)
{
    EXPECT_EQ(fetch(u"printf text; exit 1"_s), std::nullopt);
    EXPECT_EQ(fetch(u"printf text; kill -SEGV $$"_s), std::nullopt);
}

TEST_F(ManifestProgramTest, GivesNothingWithoutTheProgram)
{
    ManifestProgram missing(u"/nonexistent/program"_s);
    EXPECT_EQ(fetch(missing), std::nullopt);
    ManifestProgram directory(u"/"_s);
    EXPECT_EQ(fetch(directory), std::nullopt);
}

TEST_F(ManifestProgramTest, FetchesAgain)
{
    ManifestProgram program(u"/bin/echo"_s, {u"x"_s});
    EXPECT_EQ(fetch(program), "x\n");
    EXPECT_EQ(fetch(program), "x\n");
}

TEST_F(ManifestProgramTest, EndsAProgramThatWritesTooMuch)
{
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(fetch(u"exec yes"_s), std::nullopt);
    EXPECT_LT(timer.elapsed(), 10'000);
}

TEST_F(ManifestProgramTest, TakesAsMuchAsAManifestMayHave)
{
    const qsizetype most = 262'144; // 256 KiB, as docs/limits.md says
    const QString script = u"head -c %1 /dev/zero; sleep 0.2"_s;
    EXPECT_EQ(fetch(script.arg(most)), QByteArray(most, '\0'));
    EXPECT_EQ(fetch(script.arg(most + 1)), std::nullopt);
}

TEST_F(ManifestProgramTest, EndsTheProgramWithItself)
{
    QTemporaryDir directory;
    const QString file = directory.filePath(u"pid"_s);
    qint64 pid = 0;
    {
        ManifestProgram program(
            u"/bin/sh"_s, {u"-c"_s, u"echo $$ > '%1'; exec sleep 600"_s.arg(file)});
        program.fetch([](const std::optional<QByteArray> &) { FAIL() << "answered"; });
        ASSERT_TRUE(QTest::qWaitFor([&] {
            QFile opened(file);
            if (opened.open(QIODevice::ReadOnly))
                pid = opened.readAll().trimmed().toLongLong();
            return pid > 0;
        }));
    }
    EXPECT_EQ(::kill(static_cast<pid_t>(pid), 0), -1);
    EXPECT_EQ(errno, ESRCH);
}

TEST_F(ManifestProgramTest, LetsOthersGoFirst)
{
    errno = 0;
    const int ours = nice(0);
    EXPECT_EQ(fetch(u"nice"_s), QByteArray::number(std::min(ours + 10, 19)) + '\n');
}

TEST_F(ManifestProgramTest, FetchesFromARealServer)
{
    TestAuthority authority;
    const QByteArray manifest = R"({"version":"1.0.1","url":"https://a.example/x"})";
    QByteArray status = "200 OK";
    const LoopbackServer server(
        authority.issue(u"IP:127.0.0.1"_s), [&](QSslSocket *connection, const QByteArray &) {
            connection->write(LoopbackServer::message(status, manifest));
        });
    const QString program = QStringLiteral(FETCH_OVER_LOOPBACK);
    ManifestProgram trusting(program, {server.host(), authority.certificateFile()});
    EXPECT_EQ(fetch(trusting), manifest);
    status = "404 Not Found";
    EXPECT_EQ(fetch(trusting), std::nullopt);
    EXPECT_EQ(server.targets().count(), 2);

    status = "200 OK";
    ManifestProgram distrusting(program, {server.host()});
    EXPECT_EQ(fetch(distrusting), std::nullopt);
    EXPECT_EQ(server.targets().count(), 2);
}

TEST_F(ManifestProgramTest, TellsWhenItCannotWrite)
{
    TestAuthority authority;
    const LoopbackServer server(
        authority.issue(u"IP:127.0.0.1"_s), [&](QSslSocket *connection, const QByteArray &) {
            connection->write(LoopbackServer::message("200 OK", "{}"));
        });
    const QString command = u"'" FETCH_OVER_LOOPBACK "' "_s + server.host() + u" '"_s +
                            authority.certificateFile() + u'\'';
    EXPECT_EQ(fetch(command + u"; echo $?"_s), "{}0\n");
    EXPECT_EQ(fetch(command + u" > /dev/full; echo $?"_s), "1\n");
}

TEST_F(ManifestProgramTest, TheInstalledOneAsksTheMakersHostThroughTheSystemsProxy)
{
    QByteArray request;
    QTcpServer proxy;
    QObject::connect(&proxy, &QTcpServer::newConnection, &proxy, [&] {
        auto *connection = proxy.nextPendingConnection();
        QObject::connect(connection, &QTcpSocket::readyRead, connection, [&, connection] {
            request += connection->readAll();
            connection->write("HTTP/1.1 403 Forbidden\r\nContent-Length: 0\r\n\r\n");
            connection->disconnectFromHost();
        });
    });
    ASSERT_TRUE(proxy.listen(QHostAddress::LocalHost));
    const QString command =
        u"unset no_proxy NO_PROXY; https_proxy=http://127.0.0.1:%1 '" FETCH_MANIFEST
        "'; echo $?"_s.arg(proxy.serverPort());
    EXPECT_EQ(fetch(command), "1\n");
    EXPECT_TRUE(request.startsWith("CONNECT " DOWNLOAD_HOST ":443 ")) << request.constData();
}

TEST_F(ManifestProgramTest, LooksForTheInstalledOneBesideAndInLibexec)
{
    // None of the two folders need be there.
    EXPECT_EQ(
        QDir::cleanPath(ManifestProgram::installedProgram(u"" INSTALLED_BINARIES ""_s)),
        u"" INSTALLED_LIBEXEC "/hmatnik/hmatnik-fetch-manifest"_s);
    const QTemporaryDir build;
    const QString beside = build.filePath(u"hmatnik-fetch-manifest"_s);
    EXPECT_NE(ManifestProgram::installedProgram(build.path()), beside);
    ASSERT_TRUE(QFile(beside).open(QIODevice::WriteOnly));
    EXPECT_EQ(ManifestProgram::installedProgram(build.path()), beside);
}

} // namespace hmatnik::test
