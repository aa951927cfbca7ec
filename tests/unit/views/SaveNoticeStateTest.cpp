#include "views/SaveNoticeState.h"

#include "FakeDesktop.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace hmatnik {

using Problem = platform::Preferences::SaveProblem;

class SaveNoticeStateTest : public testing::Test
{
protected:
    void change() { m_preferences->setValue(u"key"_s, true); }

    std::shared_ptr<test::FakePreferences> m_preferences =
        std::make_shared<test::FakePreferences>();
    SaveNoticeState m_notice{m_preferences};
};

TEST_F(SaveNoticeStateTest, TellsOfTheFirstChangeThatFailsUntilAllIsStored)
{
    const QSignalSpy told(&m_notice, &SaveNoticeState::changed);
    change();
    EXPECT_FALSE(m_notice.isShown());
    m_preferences->setFailing(true);
    change();
    EXPECT_TRUE(m_notice.isShown());
    change();
    change();
    EXPECT_EQ(told.count(), 1) << "once";
    EXPECT_EQ(SaveNoticeState::headline(), u"Změny se nepodařilo uložit"_s);
    m_preferences->setFailing(false);
    EXPECT_TRUE(m_notice.isShown()) << "nothing has been stored yet";
    change();
    EXPECT_FALSE(m_notice.isShown());
    EXPECT_EQ(told.count(), 2);
}

TEST_F(SaveNoticeStateTest, TellsAWindowThatIsMadeLater)
{
    m_preferences->setFailing(true);
    m_preferences->removeValue(u"key"_s);
    EXPECT_TRUE(SaveNoticeState(m_preferences).isShown());
}

TEST_F(SaveNoticeStateTest, TryingAgainStoresOrTellsThatItFailed)
{
    m_preferences->setFailing(true);
    change();
    const QString before = m_notice.detail();
    m_notice.tryAgain();
    EXPECT_TRUE(m_notice.isShown());
    EXPECT_EQ(m_notice.detail(), u"Ani teď to nešlo. "_s + before);
    m_preferences->setFailing(false);
    m_notice.tryAgain();
    EXPECT_FALSE(m_notice.isShown());
    m_preferences->setFailing(true);
    change();
    EXPECT_EQ(m_notice.detail(), before) << "this failure is another one";
}

TEST_F(SaveNoticeStateTest, PutAwayItStaysAwayUntilTheNextFailure)
{
    m_preferences->setFailing(true);
    change();
    m_notice.hide();
    EXPECT_FALSE(m_notice.isShown());
    change();
    EXPECT_FALSE(m_notice.isShown());
    m_preferences->setFailing(false);
    change();
    m_preferences->setFailing(true);
    change();
    EXPECT_TRUE(m_notice.isShown());
}

TEST_F(SaveNoticeStateTest, GivesTheReasonInWords)
{
    QStringList reasons;
    for (const Problem problem :
         {Problem::NoRoom, Problem::NotPermitted, Problem::Busy, Problem::Other}) {
        m_preferences->setFailing(problem);
        change();
        EXPECT_TRUE(m_notice.detail().endsWith(
            u" Změny zatím zůstávají jen v paměti a ukončením Hmatníku by se ztratily."_s));
        reasons.append(m_notice.detail().section(u'.', 0, 0));
    }
    EXPECT_EQ(
        reasons,
        (QStringList{
            u"Na disku není místo"_s, u"Do složky s nastavením nelze zapisovat"_s,
            u"Nastavení drží jiný spuštěný Hmatník"_s, u"Nastavení teď nejde na disk zapsat"_s}));
}

} // namespace hmatnik
