#include "views/MenuBarState.h"

#include <QQuickWindow>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace hmatnik::test {

TEST(MenuBarStateTest, AnUnusableCommandDoesNothing)
{
    QQuickWindow window;
    int imports = 0;
    MenuBarState state(
        window, {.toggleOverlay = [] {},
                 .showMainWindow = [] {},
                 .importSystemShortcuts = [&] { ++imports; },
                 .quit =
                     [] {
                     }});
    const auto action = static_cast<int>(MenuAction::ImportSystemShortcuts);
    const QSignalSpy told(&state, &MenuBarState::unusableChanged);
    state.setUsable(MenuAction::ImportSystemShortcuts, true);
    EXPECT_EQ(told.count(), 0) << "all are, at first";
    EXPECT_TRUE(state.unusable().isEmpty());
    state.trigger(action);
    EXPECT_EQ(imports, 1);

    state.setUsable(MenuAction::ImportSystemShortcuts, false);
    state.setUsable(MenuAction::ImportSystemShortcuts, false);
    EXPECT_EQ(told.count(), 1);
    EXPECT_EQ(state.unusable(), QVariantList{action});
    state.trigger(action);
    EXPECT_EQ(imports, 1);

    state.setUsable(MenuAction::ImportSystemShortcuts, true);
    EXPECT_EQ(told.count(), 2);
    state.trigger(action);
    EXPECT_EQ(imports, 2);
}

} // namespace hmatnik::test
