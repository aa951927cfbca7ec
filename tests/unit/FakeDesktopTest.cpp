#include "FakeDesktop.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace hmatnik::test {

TEST(FakeDesktop, EndedSubscriptionsAreNotCalledAnyMore)
{
    FakeDesktop fake;
    int presses = 0;
    auto subscription = fake.mouseMonitor->monitorLeftPresses([&](QPointF) { ++presses; });
    EXPECT_EQ(fake.mouseMonitor->monitorCount(), 1);
    fake.mouseMonitor->press({1, 2});
    subscription.cancel();
    fake.mouseMonitor->press({1, 2});
    EXPECT_EQ(presses, 1);
    EXPECT_EQ(fake.mouseMonitor->monitorCount(), 0);
}

TEST(FakeDesktop, PreferencesRefuseWhatTheStoreCannotHold)
{
    FakePreferences preferences;
    EXPECT_FALSE(preferences.setValue(u"key"_s, QVariant()));
    EXPECT_FALSE(preferences.setValue(u"key"_s, QVariant(QStringList{u"a"_s})));
    EXPECT_FALSE(preferences.setValue(u"key"_s, QVariant(5)));
    EXPECT_TRUE(preferences.writes().isEmpty());
    EXPECT_TRUE(preferences.setValue(u"key"_s, QVariant(qint64(5))));
    preferences.setFailing(true);
    EXPECT_FALSE(preferences.setValue(u"key"_s, QVariant(qint64(6))));
    EXPECT_EQ(preferences.value(u"key"_s), QVariant(qint64(6)));
    EXPECT_EQ(preferences.writtenKeys(), (QStringList{u"key"_s, u"key"_s}));
}

TEST(FakeDesktop, RemovedPreferencesAreGone)
{
    FakePreferences preferences;
    preferences.setValue(u"key"_s, u"value"_s);
    EXPECT_TRUE(preferences.removeValue(u"key"_s));
    EXPECT_FALSE(preferences.value(u"key"_s).isValid());
    EXPECT_EQ(preferences.writtenKeys(), (QStringList{u"key"_s, u"key"_s}));
}

TEST(FakeDesktop, LoginItemThatNeedsApprovalStaysDisabled)
{
    FakeLoginItem item;
    item.setNeedsApproval(true);
    EXPECT_EQ(item.setEnabled(true), std::nullopt);
    EXPECT_FALSE(item.isEnabled());
}

} // namespace hmatnik::test
