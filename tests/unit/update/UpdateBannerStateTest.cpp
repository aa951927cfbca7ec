#include "update/UpdateBannerState.h"

#include "FakeDesktop.h"
#include "update/FakeManifestSource.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace hmatnik::test {

namespace {

class UpdateBannerStateTest : public testing::Test
{
protected:
    void check(const QByteArray &body)
    {
        checker->checkForUpdate();
        source->answer(body);
    }

    FakeManifestSource *source = new FakeManifestSource; // the checker's
    std::shared_ptr<FakePreferences> preferences = std::make_shared<FakePreferences>();
    std::shared_ptr<FakeUrlOpener> opener = std::make_shared<FakeUrlOpener>();
    std::unique_ptr<UpdateChecker> checker = std::make_unique<UpdateChecker>(
        preferences, std::unique_ptr<ManifestSource>(source), u"1.0"_s);
    UpdateBannerState banner{checker.get(), opener};
};

} // namespace

TEST_F(UpdateBannerStateTest, NamesTheVersionAndHowToInstallIt)
{
    check(R"({"version":"1.2","url":"https://a.example/x"})");
    EXPECT_EQ(banner.headline(), u"Dostupná nová verze 1.2"_s);
    EXPECT_EQ(banner.detail(), u"Ty máš verzi 1.0. Stáhni novou a přetáhni do Applications."_s);
    EXPECT_TRUE(banner.canDownload());
}

TEST_F(UpdateBannerStateTest, HasNoVersionToNameBeforeTheCheck)
{
    EXPECT_EQ(banner.headline(), u"Dostupná nová verze "_s);
    EXPECT_FALSE(banner.canDownload());
}

TEST_F(UpdateBannerStateTest, ShowsTheNotesInsteadWhenThereAreSome)
{
    check(R"({"version":"1.2","url":"https://a.example/x","notes":"<b>Tučně</b>"})");
    EXPECT_EQ(banner.detail(), u"<b>Tučně</b>"_s);
    check(R"({"version":"1.2","url":"https://a.example/x","notes":""})");
    EXPECT_EQ(banner.detail(), u""_s);
}

TEST_F(UpdateBannerStateTest, OpensTheAddressAndStays)
{
    check(R"({"version":"1.2","url":"https://a.example/x"})");
    banner.download();
    EXPECT_EQ(opener->opened(), QList{QUrl(u"https://a.example/x"_s)});
    EXPECT_TRUE(checker->isUpdateAvailable());
}

TEST_F(UpdateBannerStateTest, OffersNoDownloadWithoutAWebAddress)
{
    for (const char *url : {"nic", "file:///etc/passwd"}) {
        check(QByteArray(R"({"version":"1.2","url":")") + url + R"("})");
        EXPECT_TRUE(checker->isUpdateAvailable());
        EXPECT_FALSE(banner.canDownload());
        banner.download();
    }
    EXPECT_TRUE(opener->opened().isEmpty());
}

TEST_F(UpdateBannerStateTest, SkipDismissesTheVersionForGood)
{
    check(R"({"version":"1.2","url":"https://a.example/x"})");
    banner.skip();
    EXPECT_FALSE(checker->isUpdateAvailable());
    EXPECT_EQ(preferences->value(u"Hmatnik.dismissedUpdateVersion"_s), u"1.2"_s);
}

TEST_F(UpdateBannerStateTest, FollowsTheChecker)
{
    QSignalSpy changed(&banner, &UpdateBannerState::changed);
    check(R"({"version":"1.2","url":"https://a.example/x"})");
    EXPECT_GT(changed.count(), 0);
    changed.clear();
    check(R"({"version":"1.2","url":"https://a.example/x"})");
    EXPECT_EQ(changed.count(), 0);
    check(R"({"version":"1.2","url":"https://a.example/x","notes":"Novinky"})");
    EXPECT_EQ(changed.count(), 1);
}

} // namespace hmatnik::test
