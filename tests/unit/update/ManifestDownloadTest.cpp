#include "update/fetch/ManifestDownload.h"

#include "FakeDesktop.h"
#include "update/LoopbackServer.h"
#include "update/UpdateChecker.h"

#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace hmatnik::test {

namespace {

const QByteArray newerManifest =
    R"({"version":"1.0.1","url":"https://a.example/x","notes":"Novinky"})";
const QByteArray otherManifest = R"({"version":"9.9","url":"https://b.example/y"})";
constexpr qint64 hundredMegabytes = 100'000'000;

/// Memory of this process in kB: "VmRSS" now, "VmHWM" at its highest.
qint64 memory(const char *name)
{
    QFile file(u"/proc/self/status"_s);
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    const QByteArrayList lines = file.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith(name))
            return line.simplified().split(' ').value(1).toLongLong();
    }
    return -1;
}

void forgetHighestMemory()
{
    QFile file(u"/proc/self/clear_refs"_s);
    if (!file.open(QIODevice::WriteOnly) || file.write("5") != 1)
        qFatal("cannot measure memory");
}

class ManifestDownloadTest : public testing::Test
{
protected:
    static TestAuthority &authority()
    {
        static TestAuthority theOne;
        return theOne;
    }
    static const TestAuthority::Identity &goodIdentity()
    {
        static const TestAuthority::Identity theOne =
            authority().issue(u"DNS:localhost,IP:127.0.0.1"_s);
        return theOne;
    }

    static LoopbackServer::Answer always(const QByteArray &bytes)
    {
        return [bytes](QSslSocket *connection, const QByteArray &) {
            connection->write(bytes);
        };
    }

    void makeChecker(const QString &host, const QList<QSslCertificate> &authorities)
    {
        ManifestDownload::Options options;
        options.host = host;
        options.certificateAuthorities = authorities;
        options.idleTimeout = idleTimeout;
        options.totalTimeout = totalTimeout;
        checker = std::make_unique<UpdateChecker>(
            preferences, std::make_unique<ManifestDownload>(options), u"1.0"_s);
    }

    /// One check against a server that answers so.
    void check(const LoopbackServer::Answer &answer)
    {
        server = std::make_unique<LoopbackServer>(goodIdentity(), answer);
        makeChecker(server->host(), {authority().certificate()});
        run();
    }

    void run()
    {
        QSignalSpy finished(checker.get(), &UpdateChecker::checkFinished);
        checker->checkForUpdate();
        EXPECT_EQ(finished.count(), 0) << "the caller must not wait";
        ASSERT_TRUE(finished.wait(20'000));
        EXPECT_EQ(finished.count(), 1);
    }

    void expectNothingLearned() const
    {
        EXPECT_EQ(checker->latestVersion(), std::nullopt);
        EXPECT_EQ(checker->downloadURL(), std::nullopt);
        EXPECT_EQ(checker->notes(), std::nullopt);
        EXPECT_FALSE(checker->isUpdateAvailable());
    }

    /// A first check that succeeds, and one that must leave everything as it was.
    void expectToLearnNothingFrom(const LoopbackServer::Answer &answer)
    {
        check(answer);
        EXPECT_FALSE(server->targets().isEmpty());
        expectNothingLearned();

        bool first = true;
        check([&, answer](QSslSocket *connection, const QByteArray &target) {
            if (std::exchange(first, false))
                connection->write(LoopbackServer::message("200 OK", newerManifest));
            else
                answer(connection, target);
        });
        ASSERT_TRUE(checker->isUpdateAvailable());
        run();
        EXPECT_GE(server->targets().count(), 2);
        EXPECT_EQ(checker->latestVersion(), u"1.0.1"_s);
        EXPECT_EQ(checker->downloadURL(), QUrl(u"https://a.example/x"_s));
        EXPECT_EQ(checker->notes(), u"Novinky"_s);
        EXPECT_TRUE(checker->isUpdateAvailable());
    }

    /// A check against a server that would send 100 MB after the head.
    void expectToBoundAFlood(const QByteArray &head)
    {
        SCOPED_TRACE(head.constData());
        qint64 sent = 0;
        forgetHighestMemory();
        const qint64 before = memory("VmRSS");
        check([&](QSslSocket *connection, const QByteArray &target) {
            if (target == "/x") {
                connection->write(LoopbackServer::message("404 Not Found", ""));
                return;
            }
            QObject::connect(
                connection, &QSslSocket::encryptedBytesWritten, connection,
                [&sent](qint64 bytes) { sent += bytes; });
            LoopbackServer::flood(connection, head, hundredMegabytes);
        });
        expectNothingLearned();
        EXPECT_GT(sent, 0);
        // What the two sockets hold counts as sent.
        EXPECT_LT(sent, 16'000'000);
        EXPECT_LT(memory("VmHWM") - before, 32'000);
        server.reset();
    }

    std::chrono::milliseconds idleTimeout = 10s;
    std::chrono::milliseconds totalTimeout = 10s;
    std::shared_ptr<FakePreferences> preferences = std::make_shared<FakePreferences>();
    std::unique_ptr<LoopbackServer> server;
    std::unique_ptr<UpdateChecker> checker;
};

} // namespace

TEST_F(ManifestDownloadTest, AddressIsHttpsOnTheHost)
{
    EXPECT_EQ(
        ManifestDownload::address(u"a.example"_s),
        QUrl(u"https://a.example/downloads/hmatnik/version.json"_s));
    EXPECT_EQ(
        ManifestDownload::address(u"127.0.0.1:8443"_s),
        QUrl(u"https://127.0.0.1:8443/downloads/hmatnik/version.json"_s));
    EXPECT_DEATH(ManifestDownload::address(u"a b"_s), "");
    EXPECT_DEATH(ManifestDownload::address(u""_s), "");
}

TEST_F(ManifestDownloadTest, NewerVersion)
{
    check(always(LoopbackServer::message("200 OK", newerManifest)));
    EXPECT_EQ(checker->latestVersion(), u"1.0.1"_s);
    EXPECT_EQ(checker->downloadURL(), QUrl(u"https://a.example/x"_s));
    EXPECT_EQ(checker->notes(), u"Novinky"_s);
    EXPECT_TRUE(checker->isUpdateAvailable());
    EXPECT_EQ(server->targets(), QByteArrayList{"/downloads/hmatnik/version.json"});
}

TEST_F(ManifestDownloadTest, VersionsThatAreNoUpdate)
{
    for (const QByteArray version : {"1.0", "0.9.9", "1.0.0", "1.0.0.0"}) {
        check(always(LoopbackServer::message(
            "200 OK", R"({"version":")" + version + R"(","url":"https://a.example/x"})")));
        EXPECT_EQ(checker->latestVersion(), QString::fromLatin1(version));
        EXPECT_FALSE(checker->isUpdateAvailable());
    }
}

TEST_F(ManifestDownloadTest, DismissedVersion)
{
    preferences->preset(u"Hmatnik.dismissedUpdateVersion"_s, u"1.0.1"_s);
    check(always(LoopbackServer::message("200 OK", newerManifest)));
    EXPECT_EQ(checker->latestVersion(), u"1.0.1"_s);
    EXPECT_FALSE(checker->isUpdateAvailable());
}

TEST_F(ManifestDownloadTest, NotesOfNullAndMembersWeDoNotKnow)
{
    check(always(LoopbackServer::message(
        "200 OK", R"({"version":"1.1","x":{"y":[1]},"url":"https://a.example/x","notes":null})")));
    EXPECT_TRUE(checker->isUpdateAvailable());
    EXPECT_EQ(checker->notes(), std::nullopt);
}

TEST_F(ManifestDownloadTest, OtherStatusThan200)
{
    for (const char *status :
         {"404 Not Found", "500 Internal Server Error", "201 Created", "203 Non-Authoritative",
          "206 Partial Content", "304 Not Modified", "401 Unauthorized", "410 Gone"}) {
        SCOPED_TRACE(status);
        expectToLearnNothingFrom(always(LoopbackServer::message(status, otherManifest)));
    }
}

TEST_F(ManifestDownloadTest, BodiesThatAreNoManifest)
{
    for (const char *body :
         {"", "{", "nic", R"({"version":"9.9","url":"https://b.exa)", R"({"version":"9.9"})",
          R"({"url":"https://b.example/y"})", R"({"version":9,"url":"https://b.example/y"})",
          R"({"version":"9.9","url":"https://b.example/y","notes":3})"}) {
        SCOPED_TRACE(body);
        expectToLearnNothingFrom(always(LoopbackServer::message("200 OK", body)));
    }
}

TEST_F(ManifestDownloadTest, BodyShorterThanAnnounced)
{
    expectToLearnNothingFrom([](QSslSocket *connection, const QByteArray &) {
        connection->write("HTTP/1.1 200 OK\r\nContent-Length: 500\r\n\r\n" + otherManifest);
        connection->disconnectFromHost();
    });
}

TEST_F(ManifestDownloadTest, ConnectionClosedWithoutAnAnswer)
{
    expectToLearnNothingFrom(
        [](QSslSocket *connection, const QByteArray &) { connection->disconnectFromHost(); });
}

TEST_F(ManifestDownloadTest, AnswerThatIsNoHttp)
{
    expectToLearnNothingFrom([](QSslSocket *connection, const QByteArray &) {
        connection->write("220 vitejte\r\n" + otherManifest);
        connection->disconnectFromHost();
    });
}

TEST_F(ManifestDownloadTest, NobodyListens)
{
    QString host;
    {
        QTcpServer closed;
        closed.listen(QHostAddress::LocalHost);
        host = u"127.0.0.1:%1"_s.arg(closed.serverPort());
    }
    makeChecker(host, {authority().certificate()});
    run();
    expectNothingLearned();
}

TEST_F(ManifestDownloadTest, RedirectWithinHttpsIsFollowed)
{
    check([](QSslSocket *connection, const QByteArray &target) {
        connection->write(
            target == "/jinde"
                ? LoopbackServer::message("200 OK", newerManifest)
                : LoopbackServer::message("302 Found", otherManifest, "Location: /jinde\r\n"));
    });
    EXPECT_EQ(checker->latestVersion(), u"1.0.1"_s);
    EXPECT_EQ(server->targets(), (QByteArrayList{"/downloads/hmatnik/version.json", "/jinde"}));
}

TEST_F(ManifestDownloadTest, RedirectToPlainHttpIsRefused)
{
    QTcpServer plain;
    ASSERT_TRUE(plain.listen(QHostAddress::LocalHost));
    int connections = 0;
    QObject::connect(&plain, &QTcpServer::newConnection, &plain, [&] {
        ++connections;
        plain.nextPendingConnection()->write(LoopbackServer::message("200 OK", otherManifest));
    });
    const QByteArray location =
        "Location: http://127.0.0.1:" + QByteArray::number(plain.serverPort()) + "/x\r\n";
    expectToLearnNothingFrom(always(LoopbackServer::message("302 Found", otherManifest, location)));
    EXPECT_EQ(connections, 0);
}

TEST_F(ManifestDownloadTest, RedirectOutOfTheNetworkIsRefused)
{
    const QByteArray locations[] = {
        "Location: file:///etc/hostname\r\n",
        "Location: data:application/json," + otherManifest + "\r\n", "Location: qrc:/x\r\n", ""};
    for (const QByteArray &location : locations)
        expectToLearnNothingFrom(
            always(LoopbackServer::message("302 Found", otherManifest, location)));
}

TEST_F(ManifestDownloadTest, RedirectsInACircleEnd)
{
    expectToLearnNothingFrom(
        always(LoopbackServer::message("302 Found", "", "Location: /kolem\r\n")));
    EXPECT_EQ(server->targets().count(), 12) << "one that was answered, then one and ten hops";
}

TEST_F(ManifestDownloadTest, BadCertificatesAreRefused)
{
    TestAuthority stranger;
    const QList<QSslCertificate> trusted{authority().certificate()};
    const struct
    {
        const char *name = nullptr;
        TestAuthority::Identity identity;
        QList<QSslCertificate> authorities;
    } cases[] = {
        {"other authority", stranger.issue(u"DNS:localhost,IP:127.0.0.1"_s), trusted},
        {"other host", authority().issue(u"DNS:a.example"_s), trusted},
        {"expired", authority().issue(u"DNS:localhost,IP:127.0.0.1"_s, -1), trusted},
        {"unknown to the system", goodIdentity(), {}},
    };
    for (const auto &[name, identity, authorities] : cases) {
        SCOPED_TRACE(name);
        ASSERT_FALSE(identity.certificate.isNull());
        server = std::make_unique<LoopbackServer>(
            identity, always(LoopbackServer::message("200 OK", otherManifest)));
        makeChecker(server->host(), authorities);
        run();
        EXPECT_TRUE(server->targets().isEmpty()) << "nothing may be asked of a stranger";
        expectNothingLearned();
    }
}

TEST_F(ManifestDownloadTest, BodyAtTheLimit)
{
    const QByteArray padding(ManifestSource::maximumSize - newerManifest.size(), ' ');
    check(always(LoopbackServer::message("200 OK", newerManifest + padding)));
    EXPECT_TRUE(checker->isUpdateAvailable());
    check(always(LoopbackServer::message("200 OK", newerManifest + padding + ' ')));
    expectNothingLearned();
}

TEST_F(ManifestDownloadTest, HugeBodyIsGivenUpEarly)
{
    const QByteArray heads[] = {
        "HTTP/1.1 200 OK\r\nContent-Length: 100000000\r\n\r\n" + newerManifest,
        "HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n" + newerManifest,
        "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n5f5e100\r\n" + newerManifest,
        "HTTP/1.1 404 Not Found\r\nConnection: close\r\n\r\n",
        "HTTP/1.1 302 Found\r\nConnection: close\r\nLocation: http://127.0.0.1/\r\n\r\n",
        "HTTP/1.1 302 Found\r\nConnection: close\r\nLocation: /x\r\n\r\n",
    };
    for (const QByteArray &head : heads) {
        QElapsedTimer timer;
        timer.start();
        expectToBoundAFlood(head);
        EXPECT_LT(timer.elapsed(), 5'000);
    }
}

TEST_F(ManifestDownloadTest, SmallBodyThatUnfoldsIntoAHugeOne)
{
    // qCompress() puts the length before the data, which HTTP does without.
    const QByteArray packed =
        qCompress(newerManifest + QByteArray(hundredMegabytes, ' '), 9).sliced(4);
    forgetHighestMemory();
    const qint64 before = memory("VmRSS");
    check(always(LoopbackServer::message("200 OK", packed, "Content-Encoding: deflate\r\n")));
    expectNothingLearned();
    EXPECT_LT(memory("VmHWM") - before, 32'000);

    check(always(LoopbackServer::message(
        "200 OK", qCompress(newerManifest).sliced(4), "Content-Encoding: deflate\r\n")));
    EXPECT_TRUE(checker->isUpdateAvailable()) << "an honest one unfolds";
}

TEST_F(ManifestDownloadTest, SilentServerIsGivenUp)
{
    idleTimeout = 300ms;
    const LoopbackServer::Answer silences[] = {
        [](QSslSocket *, const QByteArray &) {},
        [](QSslSocket *connection, const QByteArray &) {
            connection->write("HTTP/1.1 200 OK\r\n");
        },
        [](QSslSocket *connection, const QByteArray &) {
            connection->write("HTTP/1.1 200 OK\r\nContent-Length: 500\r\n\r\n" + newerManifest);
        }};
    for (const LoopbackServer::Answer &silence : silences) {
        QElapsedTimer timer;
        timer.start();
        check(silence);
        EXPECT_EQ(server->targets().count(), 1);
        expectNothingLearned();
        EXPECT_GE(timer.elapsed(), 250); // timers may be a twentieth early
        EXPECT_LT(timer.elapsed(), 5'000);
    }
}

TEST_F(ManifestDownloadTest, ServerThatDoesNotShakeHandsIsGivenUp)
{
    totalTimeout = 500ms;
    QTcpServer deaf;
    ASSERT_TRUE(deaf.listen(QHostAddress::LocalHost));
    makeChecker(u"127.0.0.1:%1"_s.arg(deaf.serverPort()), {authority().certificate()});
    QElapsedTimer timer;
    timer.start();
    run();
    expectNothingLearned();
    EXPECT_LT(timer.elapsed(), 5'000);
}

TEST_F(ManifestDownloadTest, DrippingServerIsGivenUp)
{
    idleTimeout = 300ms;
    totalTimeout = 1s;
    QElapsedTimer timer;
    timer.start();
    check([](QSslSocket *connection, const QByteArray &) {
        connection->write("HTTP/1.1 200 OK\r\nContent-Length: 100000\r\n\r\n" + newerManifest);
        auto *drip = new QTimer(connection);
        QObject::connect(
            drip, &QTimer::timeout, connection, [connection] { connection->write(" "); });
        drip->start(50ms);
    });
    expectNothingLearned();
    EXPECT_GE(timer.elapsed(), 900) << "each drop must count as life";
    EXPECT_LT(timer.elapsed(), 5'000);
}

TEST_F(ManifestDownloadTest, EndsWithItsOwner)
{
    server = std::make_unique<LoopbackServer>(
        goodIdentity(), [this](QSslSocket *, const QByteArray &) { checker.reset(); });
    makeChecker(server->host(), {authority().certificate()});
    QSignalSpy destroyed(checker.get(), &QObject::destroyed);
    checker->checkForUpdate();
    EXPECT_TRUE(destroyed.wait(5'000));
    QTest::qWait(100); // what the transfer leaves behind must not call us
}

TEST_F(ManifestDownloadTest, GoesQuietlyWithoutATransfer)
{
    static QStringList warnings;
    const auto previous = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext &, const QString &text) { warnings.append(text); });
    {
        ManifestDownload::Options options;
        options.host = u"a.example"_s;
        const ManifestDownload idle(options);
    }
    qInstallMessageHandler(previous);
    EXPECT_EQ(warnings, QStringList());
}

} // namespace hmatnik::test
