#include "views/FilterBarState.h"

#include "FakeDesktop.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace hmatnik::test {

using namespace Qt::StringLiterals;

namespace {

struct FilterBarStateTest : testing::Test
{
    FakeDesktop desktop;
    AppModel model{desktop.desktop()};
    FilterBarState filters{model};
};

} // namespace

TEST_F(FilterBarStateTest, pillsStandInOrder)
{
    EXPECT_EQ(filters.captions(), QStringList({u"⌘"_s, u"⌥"_s, u"⇧"_s, u"⌃"_s, u"Fn"_s}));
    EXPECT_EQ(
        filters.names(),
        QStringList({u"Command"_s, u"Option"_s, u"Shift"_s, u"Control"_s, u"Fn"_s}));
}

TEST_F(FilterBarStateTest, clearIsOfferedOnlyWhileAPillIsOnAndTurnsAllOff)
{
    EXPECT_FALSE(filters.isActive());
    QSignalSpy changes(&filters, &FilterBarState::filtersChanged);
    filters.toggle(0);
    filters.toggle(2);
    EXPECT_TRUE(filters.isActive());
    EXPECT_EQ(filters.selected(), QList<bool>({true, false, true, false, false}));
    filters.clear();
    EXPECT_FALSE(filters.isActive());
    EXPECT_EQ(changes.count(), 3);
}

TEST_F(FilterBarStateTest, pillsOutOfRangeChangeNothing)
{
    filters.toggle(-1);
    filters.toggle(5);
    EXPECT_FALSE(filters.isActive());
}

} // namespace hmatnik::test
