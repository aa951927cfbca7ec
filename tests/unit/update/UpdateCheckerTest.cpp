#include "update/UpdateChecker.h"

#include "FakeDesktop.h"
#include "update/FakeManifestSource.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace hmatnik::test {

namespace {

const QString key = u"Hmatnik.dismissedUpdateVersion"_s;

class UpdateCheckerTest : public testing::Test
{
protected:
    std::unique_ptr<UpdateChecker> makeChecker(const QString &currentVersion = u"1.0"_s)
    {
        auto ownedSource = std::make_unique<FakeManifestSource>();
        source = ownedSource.get();
        return std::make_unique<UpdateChecker>(preferences, std::move(ownedSource), currentVersion);
    }

    void check(UpdateChecker &checker, const std::optional<QByteArray> &body)
    {
        checker.checkForUpdate();
        source->answer(body);
    }

    static QByteArray
    manifest(const QByteArray &version, const QByteArray &url = "https://a.example/x")
    {
        return R"({"version":")" + version + R"(","url":")" + url + R"("})";
    }

    std::shared_ptr<FakePreferences> preferences = std::make_shared<FakePreferences>();
    FakeManifestSource *source = nullptr;
};

} // namespace

TEST_F(UpdateCheckerTest, KnowsNothingBeforeTheFirstCheck)
{
    const auto checker = makeChecker();
    EXPECT_EQ(checker->latestVersion(), std::nullopt);
    EXPECT_EQ(checker->downloadURL(), std::nullopt);
    EXPECT_EQ(checker->notes(), std::nullopt);
    EXPECT_EQ(checker->dismissedVersion(), std::nullopt);
    EXPECT_FALSE(checker->isUpdateAvailable());
    EXPECT_EQ(checker->currentVersion(), u"1.0"_s);
    EXPECT_EQ(source->fetchCount, 0);
}

TEST_F(UpdateCheckerTest, IsBuiltAsTheProjectsVersion)
{
    EXPECT_EQ(UpdateChecker::builtVersion(), QStringLiteral(EXPECTED_VERSION));
    auto ownedSource = std::make_unique<FakeManifestSource>();
    const UpdateChecker checker(preferences, std::move(ownedSource));
    EXPECT_EQ(checker.currentVersion(), QStringLiteral(EXPECTED_VERSION));
}

TEST_F(UpdateCheckerTest, TellsOfANewerVersionOnly)
{
    const auto checker = makeChecker();
    for (const char *version : {"1.0", "1.0.0", "0.9", "", "nesmysl"}) {
        check(*checker, manifest(version));
        EXPECT_EQ(checker->latestVersion(), QString::fromLatin1(version));
        EXPECT_FALSE(checker->isUpdateAvailable()) << version;
    }
    check(*checker, manifest("1.0.1"));
    EXPECT_TRUE(checker->isUpdateAvailable());
}

TEST_F(UpdateCheckerTest, DismissedVersionStaysSilentUntilAnotherAppears)
{
    {
        const auto checker = makeChecker();
        check(*checker, manifest("1.2"));
        EXPECT_TRUE(checker->isUpdateAvailable());
        checker->setDismissedVersion(checker->latestVersion());
        EXPECT_FALSE(checker->isUpdateAvailable());
    }
    const auto checker = makeChecker();
    EXPECT_EQ(checker->dismissedVersion(), u"1.2"_s);
    check(*checker, manifest("1.2"));
    EXPECT_FALSE(checker->isUpdateAvailable());
    check(*checker, manifest("1.2.0"));
    EXPECT_TRUE(checker->isUpdateAvailable()) << "the very text was dismissed, not the number";
    check(*checker, manifest("1.3"));
    EXPECT_TRUE(checker->isUpdateAvailable());
    check(*checker, manifest("1.1"));
    EXPECT_TRUE(checker->isUpdateAvailable()) << "an older one than the dismissed is another one";
}

TEST_F(UpdateCheckerTest, WritesTheDismissedVersionAtEachAssignment)
{
    preferences->preset(key, u"1.2"_s);
    const auto checker = makeChecker();
    const FakePreferences::Write written{key, u"1.2"_s};
    EXPECT_EQ(preferences->writes(), QList{written});
    checker->setDismissedVersion(u"1.2"_s);
    EXPECT_EQ(preferences->writes(), (QList{written, written}));
    checker->setDismissedVersion(std::nullopt);
    EXPECT_FALSE(preferences->value(key).isValid());
    EXPECT_EQ(checker->dismissedVersion(), std::nullopt);
}

TEST_F(UpdateCheckerTest, AVersionDismissedInAnotherProcessIsDismissed)
{
    const auto checker = makeChecker();
    check(*checker, manifest("1.2"));
    ASSERT_TRUE(checker->isUpdateAvailable());
    preferences->clearWrites();
    preferences->storeElsewhere(key, u"1.2"_s);
    preferences->refresh();
    EXPECT_EQ(checker->dismissedVersion(), u"1.2"_s);
    EXPECT_FALSE(checker->isUpdateAvailable());
    EXPECT_TRUE(preferences->writes().isEmpty()) << "it is stored already";
}

TEST_F(UpdateCheckerTest, TakesAStoredValueOfAnotherTypeAsNone)
{
    preferences->preset(key, QVariant(qint64(2)));
    const auto checker = makeChecker();
    EXPECT_EQ(checker->dismissedVersion(), std::nullopt);
    EXPECT_FALSE(preferences->value(key).isValid());
}

TEST_F(UpdateCheckerTest, DismissesEvenWhenTheStoreCannotBeWritten)
{
    const auto checker = makeChecker();
    check(*checker, manifest("1.2"));
    preferences->setFailing(true);
    checker->setDismissedVersion(u"1.2"_s);
    EXPECT_FALSE(checker->isUpdateAvailable());
}

TEST_F(UpdateCheckerTest, FailureKeepsWhatWasKnown)
{
    const auto checker = makeChecker();
    check(*checker, R"({"version":"1.5","url":"https://a.example/x","notes":"Novinky"})");
    for (const std::optional<QByteArray> &body : std::initializer_list<std::optional<QByteArray>>{
             std::nullopt, "", "{", R"({"version":"9"})", R"({"version":"9","url":4})"}) {
        check(*checker, body);
        EXPECT_EQ(checker->latestVersion(), u"1.5"_s);
        EXPECT_EQ(checker->downloadURL(), QUrl(u"https://a.example/x"_s));
        EXPECT_EQ(checker->notes(), u"Novinky"_s);
        EXPECT_TRUE(checker->isUpdateAvailable());
    }
}

TEST_F(UpdateCheckerTest, ALaterManifestReplacesEverything)
{
    const auto checker = makeChecker();
    check(*checker, R"({"version":"1.5","url":"https://a.example/x","notes":"Novinky"})");
    check(*checker, manifest("1.6", "nic"));
    EXPECT_EQ(checker->latestVersion(), u"1.6"_s);
    EXPECT_EQ(checker->downloadURL(), std::nullopt);
    EXPECT_EQ(checker->notes(), std::nullopt);
}

TEST_F(UpdateCheckerTest, TakesWebAddressesOnly)
{
    const auto checker = makeChecker();
    const std::pair<QByteArray, bool> cases[] = {
        {"https://a.example/x?y=1#z", true},
        {"http://a.example", true},
        {"HTTPS://A.example/", true},
        {"https://[::1]:8080/x", true},
        {"https://háčky.example/soubor", true},
        {"", false},
        {"a.example/x", false},
        {"//a.example/x", false},
        {"https://", false},
        {"https:///x", false},
        {"https:a.example", false},
        {"https://a b.example/", false},
        {"https://a.example/a b", false},
        {"https://a.example:port/", false},
        {"https://a.example/%zz", false},
        {" https://a.example/", false},
        {"ftp://a.example/x", false},
        {"file:///etc/passwd", false},
        {"file://a.example/x", false},
        {"javascript:alert(1)", false},
        {"javascript://a.example/%0aalert(1)", false},
        {"data:text/html,x", false},
        {"mailto:a@a.example", false},
        {"hmatnik://a.example/", false},
    };
    for (const auto &[url, taken] : cases) {
        check(*checker, manifest("1.5", url));
        EXPECT_EQ(checker->downloadURL().has_value(), taken) << url.constData();
        EXPECT_EQ(checker->latestVersion(), u"1.5"_s);
        EXPECT_TRUE(checker->isUpdateAvailable());
    }
}

TEST_F(UpdateCheckerTest, TellsObserversOnlyOfRealChanges)
{
    const auto checker = makeChecker();
    QSignalSpy available(checker.get(), &UpdateChecker::isUpdateAvailableChanged);
    QSignalSpy version(checker.get(), &UpdateChecker::latestVersionChanged);
    QSignalSpy address(checker.get(), &UpdateChecker::downloadURLChanged);
    QSignalSpy notes(checker.get(), &UpdateChecker::notesChanged);
    QSignalSpy dismissed(checker.get(), &UpdateChecker::dismissedVersionChanged);
    QSignalSpy finished(checker.get(), &UpdateChecker::checkFinished);
    const auto counts = [&] {
        return QList<qsizetype>{available.count(), version.count(),   address.count(),
                                notes.count(),     dismissed.count(), finished.count()};
    };

    check(*checker, std::nullopt);
    EXPECT_EQ(counts(), (QList<qsizetype>{0, 0, 0, 0, 0, 1}));
    check(*checker, manifest("1.5"));
    EXPECT_EQ(counts(), (QList<qsizetype>{1, 1, 1, 0, 0, 2}));
    check(*checker, manifest("1.5"));
    EXPECT_EQ(counts(), (QList<qsizetype>{1, 1, 1, 0, 0, 3}));
    check(*checker, manifest("1.6"));
    EXPECT_EQ(counts(), (QList<qsizetype>{1, 2, 1, 0, 0, 4}));
    check(*checker, R"({"version":"1.6","url":"https://a.example/x","notes":""})");
    EXPECT_EQ(counts(), (QList<qsizetype>{1, 2, 1, 1, 0, 5}));
    checker->setDismissedVersion(u"1.6"_s);
    EXPECT_EQ(counts(), (QList<qsizetype>{2, 2, 1, 1, 1, 5}));
    checker->setDismissedVersion(u"1.6"_s);
    EXPECT_EQ(counts(), (QList<qsizetype>{2, 2, 1, 1, 1, 5}));
    checker->setDismissedVersion(std::nullopt);
    EXPECT_EQ(counts(), (QList<qsizetype>{3, 2, 1, 1, 2, 5}));
}

TEST_F(UpdateCheckerTest, ObserversOfOneFieldSeeTheOthersOfTheSameManifest)
{
    const auto checker = makeChecker();
    std::optional<QString> seen;
    QObject::connect(checker.get(), &UpdateChecker::latestVersionChanged, checker.get(), [&] {
        seen = checker->notes();
    });
    check(*checker, R"({"version":"1.5","url":"https://a.example/x","notes":"Novinky"})");
    EXPECT_EQ(seen, u"Novinky"_s);
}

TEST_F(UpdateCheckerTest, AsksOnceWhileACheckIsUnderWay)
{
    const auto checker = makeChecker();
    checker->checkForUpdate();
    checker->checkForUpdate();
    EXPECT_EQ(source->fetchCount, 1);
    source->answer(std::nullopt);
    checker->checkForUpdate();
    EXPECT_EQ(source->fetchCount, 2);
}

TEST_F(UpdateCheckerTest, ShowsItselfToQml)
{
    const auto checker = makeChecker();
    for (const char *name : {"latestVersion", "notes", "dismissedVersion"})
        EXPECT_EQ(checker->property(name), QVariant::fromValue(nullptr)) << name;
    EXPECT_TRUE(checker->property("downloadURL").toUrl().isEmpty());
    check(*checker, R"({"version":"1.5","url":"https://a.example/x","notes":"Novinky"})");
    checker->setDismissedVersion(u"1.4"_s);
    EXPECT_EQ(checker->property("latestVersion"), u"1.5"_s);
    EXPECT_EQ(checker->property("notes"), u"Novinky"_s);
    EXPECT_EQ(checker->property("dismissedVersion"), u"1.4"_s);
    EXPECT_EQ(checker->property("downloadURL"), QUrl(u"https://a.example/x"_s));
    EXPECT_EQ(checker->property("isUpdateAvailable"), true);
    EXPECT_EQ(checker->property("currentVersion"), u"1.0"_s);
}

} // namespace hmatnik::test
