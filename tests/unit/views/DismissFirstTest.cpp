#include "views/DismissFirst.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace hmatnik::test {

using namespace Qt::StringLiterals;

namespace {

struct DismissFirstTest : testing::Test
{
    QStringList done;
    ShellActions actions = dismissFirst(
        {.toggleOverlay = [this] { done.append(u"overlay"_s); },
         .showMainWindow = [this] { done.append(u"library"_s); },
         .importSystemShortcuts = [] {},
         .quit =
             [this] {
                 done.append(u"quit"_s);
             }},
        [this] { done.append(u"dismiss"_s); });
};

} // namespace

TEST_F(DismissFirstTest, theWindowGoesBeforeTheOverlayComes)
{
    actions.toggleOverlay();
    EXPECT_EQ(done, QStringList({u"dismiss"_s, u"overlay"_s}));
}

TEST_F(DismissFirstTest, theWindowGoesBeforeTheLibraryComes)
{
    actions.showMainWindow();
    EXPECT_EQ(done, QStringList({u"dismiss"_s, u"library"_s}));
}

TEST_F(DismissFirstTest, quittingIsAtOnce)
{
    actions.quit();
    EXPECT_EQ(done, QStringList({u"quit"_s}));
}

} // namespace hmatnik::test
